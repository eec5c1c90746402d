// The machine as the program's host.
#pragma once

#include "platform/host/host.h"
#include "platform/printing/machine_printing.h"

#include <memory>
#include <random>

class QLockFile;

namespace platform {

class MachineHost : public Host {
public:
    // What "C:\" stands for; a native path that ends in a slash.
    explicit MachineHost(const QString &driveRoot);
    ~MachineHost() override;

    void Randomize() override;
    double Rnd() override;
    int64_t Milliseconds() override;
    std::unique_ptr<Ticker> StartTicker(int milliseconds, std::function<void()> tick) override;
    QString Today() override;
    BoxAnswer MessageBox(const Box &box) override;
    QString InputBox(const QString &prompt, const QString &title, const QString &proposal) override;
    std::optional<Color> ChooseColor() override;
    std::optional<FontChoice> ChooseFont() override;
    QString ChooseFile(const FileQuestion &question) override;
    void WaitForModal(ModalWindow &window) override;
    void PlaySound(const QString &nativePath) override;
    void OpenDocument(const QString &nativePath) override;
    Printing &Printers() override { return m_printing; }
    QString DriveRoot() override { return m_driveRoot; }
    QString ApplicationFolder() override;
    ScreenSize Screen() override;
    bool AnotherInstanceRuns() override;
    bool RegisterFont(const QString &nativePath) override;
    void EndProgram() override;
    [[noreturn]] void FatalError(int number, const QString &text) override;

private:
    QString m_driveRoot;
    MachinePrinting m_printing;
    std::mt19937 m_generator;
    std::unique_ptr<QLockFile> m_lock;
};

} // namespace platform
