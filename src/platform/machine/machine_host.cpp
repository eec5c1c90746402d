#include "platform/machine/machine_host.h"

#include "platform/base/local_text.h"
#include "platform/files/own_folder.h"
#include "platform/sound/sound_player.h"

#include <QApplication>
#include <QDate>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QInputDialog>
#include <QLocale>
#include <QLockFile>
#include <QMessageBox>
#include <QProcess>
#include <QScreen>
#include <QSet>
#include <QSettings>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <cstdlib>

namespace platform {

namespace {

class MachineTicker : public Ticker {
public:
    MachineTicker(int milliseconds, std::function<void()> tick) : m_timer(new QTimer)
    {
        m_timer->setTimerType(Qt::PreciseTimer);
        QObject::connect(m_timer, &QTimer::timeout, m_timer, std::move(tick));
        m_timer->start(milliseconds);
    }
    // A tick may end its own ticker.
    ~MachineTicker() override
    {
        m_timer->stop();
        m_timer->disconnect();
        m_timer->deleteLater();
    }
    MachineTicker(const MachineTicker &) = delete;
    MachineTicker &operator=(const MachineTicker &) = delete;

private:
    QTimer *m_timer;
};

QMessageBox::Icon IconOf(BoxIcon icon)
{
    switch (icon) {
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    case BoxIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

#ifdef Q_OS_WIN
// Whether the system itself has registered the file, for all programs. Its folder holds hundreds of
// them, and each one registered anew would be read whole.
bool IsInstalledFont(const QString &nativePath)
{
    static const QSet<QString> installed = [] {
        const QSettings fonts(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows NT\\"
                                             "CurrentVersion\\Fonts"),
                              QSettings::NativeFormat);
        QSet<QString> files;
        for (const QString &name : fonts.allKeys())
            files << fonts.value(name).toString().toLower();
        return files;
    }();
    const QFileInfo file(nativePath);
    const QString path = QDir::toNativeSeparators(file.absoluteFilePath()).toLower();
    const QString folder =
        qEnvironmentVariable("SystemRoot").toLower() + QStringLiteral("\\fonts\\");
    return installed.contains(path) ||
           (path.startsWith(folder) && installed.contains(file.fileName().toLower()));
}
#else
bool IsInstalledFont(const QString &)
{
    return false;
}
#endif

} // namespace

MachineHost::MachineHost(const QString &driveRoot) : m_driveRoot(driveRoot) {}

MachineHost::~MachineHost() = default;

void MachineHost::Randomize()
{
    std::random_device device;
    m_generator.seed(device() ^ static_cast<uint32_t>(
                                    std::chrono::system_clock::now().time_since_epoch().count()));
}

double MachineHost::Rnd()
{
    return static_cast<double>((m_generator() & 0xFFFFFFFFU) >> 8) / 16777216.0;
}

int64_t MachineHost::Milliseconds()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

std::unique_ptr<Ticker> MachineHost::StartTicker(int milliseconds, std::function<void()> tick)
{
    return std::make_unique<MachineTicker>(milliseconds, std::move(tick));
}

QString MachineHost::Today()
{
    return LocalDate(QDate::currentDate(), QLocale::system());
}

BoxAnswer MachineHost::MessageBox(const Box &box)
{
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    if (box.Buttons != BoxButtons::Ok)
        buttons = QMessageBox::Yes | QMessageBox::No;
    if (box.Buttons == BoxButtons::YesNoCancel)
        buttons |= QMessageBox::Cancel;
    QMessageBox window(IconOf(box.Icon),
                       box.Title.isEmpty() ? QStringLiteral("MorleneKVT") : box.Title, box.Text,
                       buttons, QApplication::activeWindow());
    const int answer = window.exec();
    if (box.Buttons == BoxButtons::Ok)
        return BoxAnswer::Ok;
    if (answer == QMessageBox::Yes)
        return BoxAnswer::Yes;
    // Escape stands for "Cancel" where there is one, else for "No".
    return box.Buttons == BoxButtons::YesNoCancel && answer != QMessageBox::No ? BoxAnswer::Cancel
                                                                               : BoxAnswer::No;
}

QString MachineHost::InputBox(const QString &prompt, const QString &title, const QString &proposal)
{
    // A single "&" would mark a key in a label that stands before a field.
    const QString text = QString(prompt).replace(QLatin1Char('&'), QStringLiteral("&&"));
    bool confirmed = false;
    const QString answer = QInputDialog::getText(QApplication::activeWindow(), title, text,
                                                 QLineEdit::Normal, proposal, &confirmed);
    return confirmed ? answer : QString();
}

void MachineHost::PlaySound(const QString &nativePath)
{
    PlaySoundFile(nativePath);
}

void MachineHost::OpenDocument(const QString &nativePath)
{
    if (!QFileInfo::exists(nativePath))
        return;
#ifndef Q_OS_WIN
    // Not the toolkit's own way, which complains on standard error where nothing opens documents.
    QProcess viewer;
    viewer.setProgram(QStringLiteral("xdg-open"));
    viewer.setArguments({nativePath});
    viewer.setStandardOutputFile(QProcess::nullDevice());
    viewer.setStandardErrorFile(QProcess::nullDevice());
    viewer.startDetached();
#else
    QDesktopServices::openUrl(QUrl::fromLocalFile(nativePath));
#endif
}

QString MachineHost::ApplicationFolder()
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/');
}

ScreenSize MachineHost::Screen()
{
    const QSize size = QGuiApplication::primaryScreen()->geometry().size();
    return {size.width(), size.height()};
}

bool MachineHost::AnotherInstanceRuns()
{
    const QString folder = OwnFolder();
    if (folder.isEmpty())
        return false;
    // A lock whose process is gone is no lock: after a crash the next start is not refused.
    m_lock = std::make_unique<QLockFile>(folder + QStringLiteral("morlenekvt.lock"));
    m_lock->setStaleLockTime(0);
    return !m_lock->tryLock(0) && m_lock->error() == QLockFile::LockFailedError;
}

bool MachineHost::RegisterFont(const QString &nativePath)
{
    return IsInstalledFont(nativePath) || QFontDatabase::addApplicationFont(nativePath) >= 0;
}

void MachineHost::EndProgram()
{
    QCoreApplication::exit(0);
}

void MachineHost::FatalError(int number, const QString &text)
{
    // A window that throws while it paints would throw again behind the box.
    for (QWidget *window : QApplication::topLevelWidgets())
        window->setUpdatesEnabled(false);
    const QString line = number == 0 ? text : QStringLiteral("%1: %2").arg(number).arg(text);
    QMessageBox(QMessageBox::Critical, QStringLiteral("MorleneKVT"), line, QMessageBox::Ok).exec();
    m_lock.reset();
    std::_Exit(1);
}

} // namespace platform
