// The keys that are down. They belong to the keyboard and not to a control or a window: a held key
// acts once, where it was pressed; when the keyboard goes elsewhere meanwhile, its repeats and its
// release are nobody's until it has been pressed anew.
#pragma once

#include <optional>
#include <vector>

class QKeyEvent;

namespace platform {

class VisualControl;

// Looks at a key event before the widget to which it goes, once for each event.
void WatchKey(const QKeyEvent &event);
// Of the event just watched: whether it is a press, and no repeat; its release is then the
// control's.
bool TakePress(const VisualControl &control);
// Whether it is the release of what this control took.
bool TakeRelease(const VisualControl &control);
// The control loses the keyboard: what it took stays down and is nobody's.
void LetKeysGo(const VisualControl &control);

// Keys that are really down, by their numbers on the keyboard; nothing where the system does not
// tell.
using KeysDown = std::optional<std::vector<int>>;
// A window takes the keyboard: a release may have been lost on the way.
void KeyboardGoesToAWindow(const KeysDown &down);
// The program gets the keyboard from another one, which saw presses and releases of its own.
// Where the system does not tell, all keys count as up.
void KeyboardComesBack(const KeysDown &down);

} // namespace platform
