#include "platform/application.h"

#include "platform/errors.h"
#include "platform/form.h"
#include "platform/host.h"
#include "platform/x11_keyboard.h"

#include <QApplication>
#include <QFont>
#include <QLibraryInfo>
#include <QSettings>
#include <QTranslator>

namespace platform {

void Guarded(const std::function<void()> &code)
{
    try {
        code();
    } catch (const RunTimeError &error) {
        host().FatalError(error.Number(), error.Text());
    } catch (const std::exception &error) {
        host().FatalError(0, QString::fromLocal8Bit(error.what()));
    }
}

class Application::Impl : public QApplication {
public:
    Impl(int &argc, char **argv) : QApplication(argc, argv) {}

    bool notify(QObject *receiver, QEvent *event) override
    {
        bool taken = true;
        Guarded([&] { taken = QApplication::notify(receiver, event); });
        return taken;
    }

    QTranslator Buttons;
};

Application::Application(int &argc, char **argv) : m_impl(std::make_unique<Impl>(argc, argv))
{
    QApplication::setApplicationName(QStringLiteral("morlenekvt"));
    QApplication::setApplicationDisplayName(QStringLiteral("MorleneKVT"));
    // The last window's end ends the program by `Host::EndProgram`, never one that gives way.
    QApplication::setQuitOnLastWindowClosed(false);
    // Where the given families are missing; the package depends on these.
    QFont::insertSubstitution(QStringLiteral("arial"), QStringLiteral("Liberation Sans"));
    QFont::insertSubstitution(QStringLiteral("Verdana"), QStringLiteral("DejaVu Sans"));
    QFont::insertSubstitution(QStringLiteral("Comic Sans MS"), QStringLiteral("Comic Neue"));
    // The toolkit's dialogs would keep folders, history and colours in the person's home.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
    QFont font(QStringLiteral("arial"));
    font.setPixelSize(16);
    QApplication::setFont(font);
    if (m_impl->Buttons.load(QStringLiteral("qtbase_it"),
                             QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&m_impl->Buttons);
    AskForDetectableAutoRepeat();
}

Application::~Application()
{
    // Windows go before the application they belong to.
    while (!Form::Loaded().empty())
        Form::Loaded().back()->Drop();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

int Application::Run(const std::function<void()> &start)
{
    Guarded(start);
    return Form::Loaded().empty() ? 0 : QApplication::exec();
}

} // namespace platform
