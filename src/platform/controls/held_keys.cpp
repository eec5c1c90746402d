#include "platform/controls/held_keys.h"

#include "platform/controls/keys.h"

#include <QKeyEvent>

#include <algorithm>

namespace platform {

namespace {

struct HeldKey {
    int Id;
    const VisualControl *Taker; // nobody: none
};

std::vector<HeldKey> held;
bool pressed = false;                    // the event watched last is a press nobody has taken
const VisualControl *released = nullptr; // whose press it ended

// Events made by a program and not by a keyboard have no number of a key.
int IdOf(const QKeyEvent &event)
{
    constexpr int Unnumbered = 1 << 30;
    if (event.nativeScanCode() != 0)
        return static_cast<int>(event.nativeScanCode());
    const int code = ClassicKey(event);
    return Unnumbered | (code != 0 ? code : event.key());
}

} // namespace

void WatchKey(const QKeyEvent &event)
{
    pressed = false;
    released = nullptr;
    if (event.isAutoRepeat())
        return;
    const int id = IdOf(event);
    const auto known =
        std::find_if(held.begin(), held.end(), [id](const HeldKey &key) { return key.Id == id; });
    if (event.type() == QEvent::KeyPress) {
        // The X server repeats presses alone and does not flag them.
        pressed = known == held.end();
        if (pressed)
            held.push_back({id, nullptr});
    } else if (known != held.end()) {
        released = known->Taker;
        held.erase(known);
    }
}

bool TakePress(const VisualControl &control)
{
    if (!pressed)
        return false;
    pressed = false;
    held.back().Taker = &control;
    return true;
}

bool TakeRelease(const VisualControl &control)
{
    const bool taken = released == &control;
    released = nullptr;
    return taken;
}

void LetKeysGo(const VisualControl &control)
{
    for (HeldKey &key : held)
        if (key.Taker == &control)
            key.Taker = nullptr;
}

void KeyboardGoesToAWindow(const KeysDown &down)
{
    if (down)
        std::erase_if(held, [&](const HeldKey &key) {
            return std::find(down->begin(), down->end(), key.Id) == down->end();
        });
}

void KeyboardComesBack(const KeysDown &down)
{
    held.clear();
    if (down)
        for (const int id : *down)
            held.push_back({id, nullptr});
}

} // namespace platform
