#include "platform/machine/command_line.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QDir>
#include <QLibraryInfo>

#include <algorithm>
#include <cstdio>

#ifndef Q_OS_WIN
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>
#endif

namespace platform {

namespace {

constexpr int UnknownWord = 2;
constexpr int NoScreen = 3;

constexpr const char *Help =
    "Uso: morlenekvt [--help | --version]\n"
    "\n"
    "Apre MorleneKVT, un programma didattico per bambini, a tutto schermo.\n"
    "\n"
    "  -h, --help     mostra questo aiuto\n"
    "  -v, --version  mostra la versione\n";

#ifndef Q_OS_WIN

// The connection stays open until the process ends: a server that nobody else uses starts anew when
// its last one goes, and would turn away the toolkit, which comes next.
bool X11Answers()
{
    static xcb_connection_t *const connection = xcb_connect(nullptr, nullptr);
    return xcb_connection_has_error(connection) == 0;
}

// Whether the toolkit has its plugin for a platform; the name ends at a colon. One that was put
// elsewhere is taken at its word.
bool HasPlugin(const QByteArray &platform)
{
    if (qEnvironmentVariableIsSet("QT_PLUGIN_PATH") ||
        qEnvironmentVariableIsSet("QT_QPA_PLATFORM_PLUGIN_PATH"))
        return true;
    const QString name = QString::fromLocal8Bit(platform).section(QLatin1Char(':'), 0, 0);
    return !QDir(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"))
                .entryList({QStringLiteral("libq%1*").arg(name)}, QDir::Files)
                .isEmpty();
}

QByteArrayList PlatformsAskedFor()
{
    const QByteArray platforms = qgetenv("QT_QPA_PLATFORM");
    return (platforms.isEmpty() ? QByteArray("xcb;wayland") : platforms).split(';');
}

// What is asked for when the toolkit knows nothing of it; empty when it knows one.
QByteArray UnknownPlatforms()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        return {};
    const QByteArrayList names = PlatformsAskedFor();
    return std::any_of(names.begin(), names.end(), HasPlugin) ? QByteArray() : names.join(';');
}

bool WaylandAnswers()
{
    // The toolkit shows nothing there without its plugin.
    if (!HasPlugin("wayland"))
        return false;
    if (qEnvironmentVariableIsSet("WAYLAND_SOCKET"))
        return true;
    QByteArray name = qgetenv("WAYLAND_DISPLAY");
    if (name.isEmpty())
        name = "wayland-0";
    if (!name.startsWith('/'))
        name = qgetenv("XDG_RUNTIME_DIR") + '/' + name;
    sockaddr_un address = {};
    if (name.size() >= qsizetype{sizeof address.sun_path})
        return false;
    address.sun_family = AF_UNIX;
    std::copy(name.begin(), name.end(), address.sun_path);
    const int number = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool answers = number >= 0 && ::connect(number, reinterpret_cast<sockaddr *>(&address),
                                                  sizeof address) == 0;
    if (number >= 0)
        ::close(number);
    return answers;
}

// The toolkit shows windows on the first of the platforms that are asked for, and off screen or on
// a bare frame buffer it needs nobody to answer.
bool HasScreen()
{
    const QByteArrayList names = PlatformsAskedFor();
    return std::any_of(names.begin(), names.end(), [](const QByteArray &name) {
        if (name.startsWith("xcb"))
            return X11Answers();
        return name.startsWith("wayland") ? WaylandAnswers() : HasPlugin(name);
    });
}

#else

QByteArray UnknownPlatforms()
{
    return {};
}

bool HasScreen()
{
    return true;
}

#endif

} // namespace

std::optional<int> AnswerCommandLine(int argc, char **argv, const char *version)
{
    for (int i = 1; i < argc; ++i) {
        const QByteArray word = argv[i];
        if (word == "--help" || word == "-h") {
            std::fputs(Help, stdout);
            return 0;
        }
        if (word == "--version" || word == "-v") {
            std::printf("morlenekvt %s\n", version);
            return 0;
        }
        // The desktop's session starts a program that was open with its mark.
        if (word == "-session" && i + 1 < argc) {
            ++i;
            continue;
        }
        std::fprintf(stderr,
                     "morlenekvt: opzione sconosciuta: %s (morlenekvt --help mostra l'aiuto)\n",
                     argv[i]);
        return UnknownWord;
    }
    if (const QByteArray unknown = UnknownPlatforms(); !unknown.isEmpty()) {
        std::fprintf(stderr,
                     "morlenekvt: QT_QPA_PLATFORM chiede \"%s\", che su questo computer non c'è\n",
                     unknown.constData());
        return NoScreen;
    }
    if (HasScreen())
        return {};
    std::fprintf(stderr,
                 "morlenekvt: manca uno schermo, perché né DISPLAY né WAYLAND_DISPLAY ne indicano "
                 "uno che risponda; per vedere lo stesso il programma serve uno schermo virtuale, "
                 "per esempio: xvfb-run -s '-screen 0 1366x768x24' %s\n",
                 argv[0]);
    return NoScreen;
}

} // namespace platform
