// The host of the tests: holds the clock, hands out the draws it was given, answers the boxes it
// was told to expect, and records what windows show in the order it happens.
#pragma once

#include "platform/host/host.h"
#include "support/fake_printing.h"

#include <QList>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <optional>
#include <random>
#include <vector>

// A draw that a test foresees: Int(r * Count) gives Value.
struct ScriptedDraw {
    int Count;
    int Value;
};

class ScriptedHost : public platform::Host {
public:
    // With an empty drive of its own, and the built program's folder as application folder.
    ScriptedHost();
    // Fails the test for a draw or a box that was left over.
    ~ScriptedHost() override;

    // Chance: scripted draws in their order, and a failure for one that was not foreseen, or after
    // `Seed` a real generator.
    void Expect(const QList<ScriptedDraw> &draws);
    void Seed(uint32_t seed);
    bool DrawsLeft() const { return !m_draws.isEmpty(); }

    // The clock stands still but for this; ticks come in the order of their times.
    void Advance(int milliseconds);

    // The next boxes, each with its text and its answer.
    void ExpectBox(const QString &text, platform::BoxAnswer answer = platform::BoxAnswer::Ok);
    // The same, with title, icon and buttons looked at too.
    void ExpectBox(const platform::Box &box, platform::BoxAnswer answer = platform::BoxAnswer::Ok);
    void ExpectInput(const QString &prompt, const QString &answer);

    // The next dialogs, each with its answer; nothing, or an empty path, cancels it.
    void ExpectColor(std::optional<platform::Color> answer);
    void ExpectFont(const std::optional<platform::FontChoice> &answer);
    void ExpectFile(const QString &title, const QString &answer);
    // What a person does in the next modal form; it has to end there.
    void ExpectModal(std::function<void(platform::Form &)> person);

    // What happened: "Command1(0).Enabled=True", "suono si/2.wav", "estratto 1 di 4", ...
    QStringList Events;
    bool RecordsDraws = false;
    bool Watching = true; // else what windows show is not recorded
    // Takes what was recorded and starts anew.
    QStringList TakeEvents();

    platform::ScreenSize ScreenSizeNow{1366, 768};
    QString Application; // native, ends in a slash
    bool OtherInstance = false;
    bool Ended = false;
    int FatalNumber = 0; // 0: no fatal error
    QString FatalText;
    QStringList RegisteredFonts;
    QStringList OpenedDocuments;
    int DocumentError = 0; // raised for every document, 0: none
    platform::FileQuestion LastFileQuestion;
    QString TodayNow = QStringLiteral("21/11/2026");
    QTemporaryDir Drive;
    FakePrinting Printer;

    // A file on the drive by its path below "C:\", with slashes.
    QByteArray DriveFile(const QString &path) const;
    void WriteDriveFile(const QString &path, const QByteArray &content) const;
    bool DriveHas(const QString &path) const;

    // How many timers and movies wait for their next tick.
    int Waiting() const { return static_cast<int>(m_tickers.size()); }

    void Randomize() override { Events << QStringLiteral("randomize"); }
    double Rnd() override;
    int DrawBelow(int count) override;
    int64_t Milliseconds() override { return m_now; }
    std::unique_ptr<platform::Ticker> StartTicker(int milliseconds,
                                                  std::function<void()> tick) override;
    QString Today() override { return TodayNow; }
    platform::BoxAnswer MessageBox(const platform::Box &box) override;
    QString InputBox(const QString &prompt, const QString &title, const QString &proposal) override;
    std::optional<platform::Color> ChooseColor() override;
    std::optional<platform::FontChoice> ChooseFont() override;
    QString ChooseFile(const platform::FileQuestion &question) override;
    void WaitForModal(platform::ModalWindow &window) override;
    void PlaySound(const QString &nativePath) override;
    void OpenDocument(const QString &nativePath) override;
    platform::Printing &Printers() override { return Printer; }
    QString DriveRoot() override { return Drive.path() + QLatin1Char('/'); }
    QString ApplicationFolder() override { return Application; }
    platform::ScreenSize Screen() override { return ScreenSizeNow; }
    bool AnotherInstanceRuns() override { return OtherInstance; }
    bool RegisterFont(const QString &nativePath) override;
    void EndProgram() override;
    void FatalError(int number, const QString &text) override;
    bool Watches() const override { return Watching; }
    void Changed(const QString &what) override { Events << what; }

private:
    friend class ScriptedTicker;
    struct ExpectedBox {
        QString Text;
        platform::BoxAnswer Answer;
        QString Input;
        std::optional<platform::Box> Whole{}; // to be compared in all of it
    };
    struct ExpectedDialog {
        QString Kind; // "color", "font", "file " with its title, "modal"
        std::optional<platform::Color> Color{};
        std::optional<platform::FontChoice> Font{};
        QString File{};
        std::function<void(platform::Form &)> Person{};
    };
    // Taken from the front; fails the test when another kind comes.
    ExpectedDialog NextDialog(const QString &kind);

    QList<ScriptedDraw> m_draws;
    QList<ExpectedDialog> m_dialogs;
    QList<ExpectedBox> m_boxes;
    std::mt19937 m_generator;
    bool m_seeded = false;
    int64_t m_now = 0;
    std::vector<class ScriptedTicker *> m_tickers;
};

// Drops every form and lets it be deleted.
void DropForms();
