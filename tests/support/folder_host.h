// A host for tests of files: a drive and an application folder of its own, and nothing else.
#pragma once

#include "platform/base/errors.h"
#include "platform/host/host.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class FolderHost : public platform::Host {
public:
    FolderHost()
    {
        QDir(m_folder.path()).mkpath(QStringLiteral("drive"));
        QDir(m_folder.path()).mkpath(QStringLiteral("application"));
        Drive = m_folder.filePath(QStringLiteral("drive/"));
        Application = m_folder.filePath(QStringLiteral("application/"));
        platform::SetHost(this);
    }
    ~FolderHost() override { platform::SetHost(nullptr); }

    QString Drive;       // ends in a slash
    QString Application; // likewise

    // Above both folders; what lies here is outside the drive.
    QString Outside(const QString &name) const { return m_folder.filePath(name); }

    // Files by their native path, made and read past the code that is tested.
    static void Put(const QString &native, const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(native).path());
        QFile file(native);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("the test could not write a file");
    }
    static QByteArray Get(const QString &native)
    {
        QFile file(native);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
    }

    QString DriveRoot() override { return Drive; }
    QString ApplicationFolder() override { return Application; }

    void Randomize() override { Fail(); }
    double Rnd() override { Fail(); }
    int64_t Milliseconds() override { Fail(); }
    std::unique_ptr<platform::Ticker> StartTicker(int, std::function<void()>) override { Fail(); }
    QString Today() override { Fail(); }
    platform::BoxAnswer MessageBox(const platform::Box &) override { Fail(); }
    QString InputBox(const QString &, const QString &, const QString &) override { Fail(); }
    std::optional<platform::Color> ChooseColor() override { Fail(); }
    std::optional<platform::FontChoice> ChooseFont() override { Fail(); }
    QString ChooseFile(const platform::FileQuestion &) override { Fail(); }
    void WaitForModal(platform::ModalWindow &) override { Fail(); }
    void PlaySound(const QString &) override { Fail(); }
    void OpenDocument(const QString &) override { Fail(); }
    platform::Printing &Printers() override { Fail(); }
    platform::ScreenSize Screen() override { Fail(); }
    bool AnotherInstanceRuns() override { Fail(); }
    bool RegisterFont(const QString &) override { Fail(); }
    void EndProgram() override { Fail(); }
    void FatalError(int, const QString &) override { Fail(); }

private:
    [[noreturn]] static void Fail() { qFatal("files asked the host for something else"); }

    QTemporaryDir m_folder;
};

// The number of the error that a statement raises, 0 for none.
template <typename Statement> int ErrorOf(Statement &&statement)
{
    return platform::Skipping(std::forward<Statement>(statement));
}
