#include "told_windows.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaObject>
#include <QRect>

#include <thread>

#include <winsock2.h>

namespace {

constexpr int WholeApplication = 0;

QJsonArray States(const QAccessible::State &state)
{
    QJsonArray states;
    const auto add = [&states](bool holds, const char *name) {
        if (holds)
            states << QString::fromLatin1(name);
    };
    add(!state.invisible && !state.offscreen, "showing");
    add(!state.disabled, "enabled");
    add(state.focused, "focused");
    add(state.active, "active");
    add(state.checked, "checked");
    add(state.selected, "selected");
    add(state.modal, "modal");
    return states;
}

int NumberOf(QAccessibleInterface *item)
{
    return static_cast<int>(QAccessible::uniqueId(item));
}

// In the thread of the windows.
QByteArray Answer(const QByteArray &question)
{
    const int number = question.mid(question.indexOf(' ') + 1).trimmed().toInt();
    QAccessibleInterface *item =
        number == WholeApplication
            ? QAccessible::queryAccessibleInterface(QCoreApplication::instance())
            : QAccessible::accessibleInterface(static_cast<QAccessible::Id>(number));
    if (item == nullptr || !item->isValid())
        return "null";
    QJsonArray children;
    for (int i = 0; i < item->childCount(); ++i)
        if (QAccessibleInterface *child = item->child(i))
            children << NumberOf(child);
    QAccessibleInterface *parent = item->parent();
    const QRect box = item->rect();
    QJsonObject told{
        {QStringLiteral("item"), number},
        {QStringLiteral("role"), static_cast<int>(item->role())},
        {QStringLiteral("name"), item->text(QAccessible::Name)},
        {QStringLiteral("description"), item->text(QAccessible::Description)},
        {QStringLiteral("states"), States(item->state())},
        {QStringLiteral("children"), children},
        {QStringLiteral("box"), QJsonArray{box.x(), box.y(), box.width(), box.height()}}};
    if (parent != nullptr)
        told.insert(QStringLiteral("parent"), NumberOf(parent));
    if (QAccessibleTextInterface *text = item->textInterface())
        told.insert(QStringLiteral("text"), text->text(0, text->characterCount()));
    return QJsonDocument(told).toJson(QJsonDocument::Compact);
}

QByteArray AskWindows(const QByteArray &question)
{
    QByteArray answer = "null";
    if (QCoreApplication *application = QCoreApplication::instance())
        QMetaObject::invokeMethod(
            application, [&] { answer = Answer(question); }, Qt::BlockingQueuedConnection);
    return answer;
}

// A connection may ask several times.
void Serve(SOCKET asking)
{
    QByteArray received;
    char buffer[4096];
    for (;;) {
        const int count = ::recv(asking, buffer, sizeof buffer, 0);
        if (count <= 0)
            break;
        received.append(buffer, count);
        for (qsizetype end = received.indexOf('\n'); end >= 0; end = received.indexOf('\n')) {
            const QByteArray answer = AskWindows(received.left(end)) + '\n';
            received.remove(0, end + 1);
            for (int sent = 0; sent < answer.size();) {
                const int more = ::send(asking, answer.constData() + sent,
                                        static_cast<int>(answer.size()) - sent, 0);
                if (more <= 0)
                    break;
                sent += more;
            }
        }
    }
    ::closesocket(asking);
}

} // namespace

void TellWindows()
{
    const QString told = qEnvironmentVariable("MORLENE_TOLD");
    if (told.isEmpty())
        return;
    WSADATA library;
    ::WSAStartup(MAKEWORD(2, 2), &library);
    const SOCKET door = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    ::bind(door, reinterpret_cast<sockaddr *>(&address), size);
    ::getsockname(door, reinterpret_cast<sockaddr *>(&address), &size);
    ::listen(door, SOMAXCONN);
    QFile file(told + QStringLiteral(".part"));
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(QByteArray::number(::ntohs(address.sin_port))) < 0)
        return;
    file.close();
    file.rename(told);
    std::thread([door] {
        for (;;) {
            const SOCKET asking = ::accept(door, nullptr, nullptr);
            if (asking != INVALID_SOCKET)
                std::thread(Serve, asking).detach();
        }
    }).detach();
}
