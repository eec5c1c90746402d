#include "platform/machine/application.h"

#include "platform/controls/form_window.h"
#include "platform/controls/held_keys.h"
#include "platform/controls/stage.h"
#include "platform/host/host.h"
#include "platform/machine/keyboard.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QFont>
#include <QKeyEvent>
#include <QLabel>
#include <QLibraryInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QTranslator>

#ifndef Q_OS_WIN
#include <clocale>
#include <optional>
#include <thread>

#include <fontconfig/fontconfig.h>
#else
#include <QPalette>
#include <QStyle>
#endif

namespace platform {

namespace {

#ifndef Q_OS_WIN
// The toolkit looks for a screen in the session's folder first. Where the session has none, it
// would complain on standard error and leave a folder of its own among the temporary files.
class SessionFolder {
public:
    SessionFolder()
    {
        if (qEnvironmentVariableIsSet(Name))
            return;
        m_folder.emplace();
        qputenv(Name, QFile::encodeName(m_folder->path()));
    }
    ~SessionFolder()
    {
        if (m_folder)
            qunsetenv(Name);
    }
    SessionFolder(const SessionFolder &) = delete;
    SessionFolder &operator=(const SessionFolder &) = delete;

private:
    static constexpr const char *Name = "XDG_RUNTIME_DIR";
    std::optional<QTemporaryDir> m_folder;
};

// Reading the list of the system's fonts takes as long as reaching the display and needs nothing of
// it: both at once.
class FontsMeanwhile {
public:
    FontsMeanwhile() : m_reading([] { FcInit(); }) {}
    ~FontsMeanwhile() { m_reading.join(); }
    FontsMeanwhile(const FontsMeanwhile &) = delete;
    FontsMeanwhile &operator=(const FontsMeanwhile &) = delete;

private:
    std::thread m_reading;
};
#endif

// A box shows names that people and files have; the toolkit would take "a<b>.ini" for markup.
void ShowAsItStands(const QDialog &box)
{
    for (QLabel *label : box.findChildren<QLabel *>())
        label->setTextFormat(Qt::PlainText);
}

} // namespace

class Application::Impl : public QApplication {
public:
    Impl(int &argc, char **argv) : QApplication(argc, argv) {}

    bool notify(QObject *receiver, QEvent *event) override
    {
        if (event->type() == QEvent::Polish)
            if (const auto *box = qobject_cast<QDialog *>(receiver)) {
                ShowAsItStands(*box);
                ShowWhatIsBeingSetUp();
            }
        Watch(*receiver, *event);
        bool taken = true;
        Guarded([&] { taken = QApplication::notify(receiver, event); });
        return taken;
    }

    QTranslator Buttons;

private:
    // What is down belongs to the keyboard: seen here for all windows, dialogs and menus.
    static void Watch(const QObject &receiver, const QEvent &event)
    {
        switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            // The window hands it on to a widget.
            if (receiver.isWidgetType())
                WatchKey(static_cast<const QKeyEvent &>(event));
            return;
        case QEvent::FocusIn:
            if (receiver.isWindowType())
                KeyboardGoesToAWindow(KeysDownNow());
            return;
        case QEvent::ApplicationActivate:
            return KeyboardComesBack(KeysDownNow());
        default:
            return;
        }
    }
};

Application::Application(int &argc, char **argv)
{
#ifndef Q_OS_WIN
    {
        const SessionFolder folder;
        // The toolkit sets the locale too; what is set already it does not change under the reader.
        std::setlocale(LC_ALL, "");
        const FontsMeanwhile fonts;
        m_impl = std::make_unique<Impl>(argc, argv);
    }
    // The toolkit's dialogs would keep folders, history and colours in the person's home.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
    const QString translations = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#else
    m_impl = std::make_unique<Impl>(argc, argv);
    // The system's own would paint buttons in its colours and not in the player's.
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(QApplication::style()->standardPalette());
    const QString translations = QApplication::applicationDirPath();
#endif
    QApplication::setApplicationName(QStringLiteral("morlenekvt"));
    // By it a desktop knows whose windows these are, and gives them the name and icon of the menu.
    QApplication::setDesktopFileName(QStringLiteral("morlenekvt"));
    // No display name: the window system would add it to every title.
    // The last window's end ends the program by `Host::EndProgram`, never one that gives way.
    QApplication::setQuitOnLastWindowClosed(false);
    // Where the given families are missing; the package depends on these.
    QFont::insertSubstitution(QStringLiteral("arial"), QStringLiteral("Liberation Sans"));
    QFont::insertSubstitution(QStringLiteral("Verdana"), QStringLiteral("DejaVu Sans"));
    QFont::insertSubstitution(QStringLiteral("Comic Sans MS"), QStringLiteral("Comic Neue"));
    QFont font(QStringLiteral("arial"));
    font.setPixelSize(16);
    QApplication::setFont(font);
    if (m_impl->Buttons.load(QStringLiteral("qtbase_it"), translations))
        QApplication::installTranslator(&m_impl->Buttons);
    AskForDetectableAutoRepeat();
}

Application::~Application()
{
    // Windows go before the application they belong to.
    while (!Form::Loaded().empty())
        Form::Loaded().back()->Drop();
    Stage::Close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int Application::Run(const std::function<void()> &start)
{
    Guarded(start);
    return Form::Loaded().empty() ? 0 : QApplication::exec();
}

} // namespace platform
