// One door for all that varies from run to run: chance, time, questions asked of a person, sounds,
// and where the program and its drive lie. The product's host is the machine, a test's is scripted.
#pragma once

#include "platform/base/colors.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace platform {

struct ScreenSize {
    int Width = 0; // logical pixels
    int Height = 0;
};

enum class BoxIcon { None, Information, Question, Critical };
enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

struct Box {
    QString Text;
    QString Title{}; // empty: the program's name
    BoxIcon Icon = BoxIcon::None;
    BoxButtons Buttons = BoxButtons::Ok;
};

// What a person chose in the font dialog.
struct FontChoice {
    QString Name;
    double Size = 0; // points
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
};

struct FileQuestion {
    bool Open = false; // an existing file; else one to write, asked about before it is replaced
    QString Title{};
    QString ProposedName{};
    QString Pattern{};     // "*.rpt"
    QString StartFolder{}; // native
    QString Extension{};   // "rpt", added to a typed name without one
};

// A running ticker; it stops when the handle goes.
class Ticker {
public:
    virtual ~Ticker() = default;
};

// A window that was shown modally, as far as who waits for its end has to know it.
class ModalWindow {
public:
    virtual ~ModalWindow() = default;
    // Runs `closed` at the end of the window, once.
    virtual void WhenClosed(std::function<void()> closed) = 0;
};

class Printing;

class Host {
public:
    virtual ~Host() = default;

    // Chance. A draw is uniform, 0 <= r < 1, a whole number of 24 bits divided by 2^24.
    virtual void Randomize() = 0;
    virtual double Rnd() = 0;
    // Int(Rnd * count), so 0 to count - 1; 0 spends a draw too when count is 0.
    virtual int DrawBelow(int count) { return static_cast<int>(Rnd() * count); }

    // Time. Ticks every `milliseconds`, on the grid of the start, at most one pending.
    virtual int64_t Milliseconds() = 0;
    virtual std::unique_ptr<Ticker> StartTicker(int milliseconds, std::function<void()> tick) = 0;

    // Today as day, month and year with four digits, in the order and with the signs of the place.
    virtual QString Today() = 0;

    // Questions.
    virtual BoxAnswer MessageBox(const Box &box) = 0;
    // Text typed by a person; empty when cancelled.
    virtual QString InputBox(const QString &prompt, const QString &title,
                             const QString &proposal) = 0;
    // The common dialogs; nothing when cancelled. The colour dialog opens on black and keeps no
    // custom colours, the font dialog opens with nothing chosen, the file dialog gives a native
    // path, empty when cancelled.
    virtual std::optional<Color> ChooseColor() = 0;
    virtual std::optional<FontChoice> ChooseFont() = 0;
    virtual QString ChooseFile(const FileQuestion &question) = 0;
    // Lets a person use a window that was shown modally; comes back when it is closed.
    virtual void WaitForModal(ModalWindow &window) = 0;

    // Plays a wave file at once and cuts off the one still playing. Never fails, never waits.
    virtual void PlaySound(const QString &nativePath) = 0;
    // Opens a document with the desktop's own program; silent when there is none.
    virtual void OpenDocument(const QString &nativePath) = 0;

    virtual Printing &Printers() = 0;

    // Places. Native paths with slashes that end in a slash.
    virtual QString DriveRoot() = 0;
    virtual QString ApplicationFolder() = 0;
    virtual ScreenSize Screen() = 0;
    virtual bool AnotherInstanceRuns() = 0;

    // Registers a font file for this process; false when it cannot be read.
    virtual bool RegisterFont(const QString &nativePath) = 0;

    // Ends: in order (`EndProgram`, after the last window), or after an error that nothing trapped.
    virtual void EndProgram() = 0;
    virtual void FatalError(int number, const QString &text) = 0;

    // A host that watches is told each change of what a window shows, in the order it happens.
    virtual bool Watches() const { return false; }
    virtual void Changed(const QString &what) { static_cast<void>(what); }
};

Host &host();
void SetHost(Host *host);

} // namespace platform
