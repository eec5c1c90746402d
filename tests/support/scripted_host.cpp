#include "support/scripted_host.h"

#include "platform/base/errors.h"
#include "platform/controls/form.h"
#include "platform/controls/held_keys.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <algorithm>

using namespace platform;

class ScriptedTicker : public Ticker {
public:
    ScriptedTicker(ScriptedHost &owner, int milliseconds, std::function<void()> tick)
        : Interval(milliseconds), Next(owner.m_now + milliseconds), Tick(std::move(tick)),
          m_owner(owner)
    {
        owner.m_tickers.push_back(this);
    }
    ~ScriptedTicker() override { std::erase(m_owner.m_tickers, this); }
    ScriptedTicker(const ScriptedTicker &) = delete;
    ScriptedTicker &operator=(const ScriptedTicker &) = delete;

    int Interval;
    int64_t Next;
    std::function<void()> Tick;

private:
    ScriptedHost &m_owner;
};

ScriptedHost::ScriptedHost() : Application(QStringLiteral(APPLICATION_DIR "/"))
{
    SetHost(this);
    // No key is down that another test left so.
    platform::KeyboardComesBack({});
}

ScriptedHost::~ScriptedHost()
{
    DropForms();
    if (!m_draws.isEmpty())
        QTest::qFail("draws were left over", __FILE__, __LINE__);
    if (!m_boxes.isEmpty())
        QTest::qFail(qPrintable(QStringLiteral("a box never came: ") + m_boxes.first().Text),
                     __FILE__, __LINE__);
    if (!m_dialogs.isEmpty())
        QTest::qFail(qPrintable(QStringLiteral("a dialog never came: ") + m_dialogs.first().Kind),
                     __FILE__, __LINE__);
    SetHost(nullptr);
}

void ScriptedHost::Expect(const QList<ScriptedDraw> &draws)
{
    m_draws << draws;
}

void ScriptedHost::Seed(uint32_t seed)
{
    m_seeded = true;
    m_generator.seed(seed);
}

double ScriptedHost::Rnd()
{
    if (!m_seeded) {
        QTest::qFail("a draw that was not foreseen", __FILE__, __LINE__);
        return 0;
    }
    return static_cast<double>((m_generator() & 0xFFFFFFFFU) >> 8) / 16777216.0;
}

int ScriptedHost::DrawBelow(int count)
{
    int value = 0;
    if (m_draws.isEmpty()) {
        value = static_cast<int>(Rnd() * count);
    } else {
        const ScriptedDraw draw = m_draws.takeFirst();
        if (draw.Count != count)
            QTest::qFail(qPrintable(QStringLiteral("a draw of %1 where one of %2 was foreseen")
                                        .arg(count)
                                        .arg(draw.Count)),
                         __FILE__, __LINE__);
        value = draw.Value;
    }
    if (RecordsDraws)
        Events << QStringLiteral("estratto %1 di %2").arg(value).arg(count);
    return value;
}

void ScriptedHost::Advance(int milliseconds)
{
    const int64_t end = m_now + milliseconds;
    for (;;) {
        const auto next =
            std::min_element(m_tickers.begin(), m_tickers.end(),
                             [](auto *left, auto *right) { return left->Next < right->Next; });
        if (next == m_tickers.end() || (*next)->Next > end)
            break;
        ScriptedTicker &ticker = **next;
        m_now = ticker.Next;
        ticker.Next += ticker.Interval;
        // The tick may end its ticker.
        const auto tick = ticker.Tick;
        tick();
    }
    m_now = end;
}

void ScriptedHost::ExpectBox(const QString &text, BoxAnswer answer)
{
    m_boxes.append({text, answer, {}});
}

void ScriptedHost::ExpectBox(const Box &box, BoxAnswer answer)
{
    m_boxes.append({box.Text, answer, {}, box});
}

void ScriptedHost::ExpectInput(const QString &prompt, const QString &answer)
{
    // Every question of the program has this title and proposes nothing.
    m_boxes.append({prompt, BoxAnswer::Ok, answer, Box{prompt, QStringLiteral("Morlenekvt")}});
}

QStringList ScriptedHost::TakeEvents()
{
    return std::exchange(Events, {});
}

QByteArray ScriptedHost::DriveFile(const QString &path) const
{
    QFile file(Drive.filePath(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ScriptedHost::WriteDriveFile(const QString &path, const QByteArray &content) const
{
    QDir().mkpath(QFileInfo(Drive.filePath(path)).path());
    QFile file(Drive.filePath(path));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        QTest::qFail("the test cannot write on its own drive", __FILE__, __LINE__);
}

bool ScriptedHost::DriveHas(const QString &path) const
{
    return QFileInfo::exists(Drive.filePath(path));
}

std::unique_ptr<Ticker> ScriptedHost::StartTicker(int milliseconds, std::function<void()> tick)
{
    return std::make_unique<ScriptedTicker>(*this, milliseconds, std::move(tick));
}

BoxAnswer ScriptedHost::MessageBox(const Box &box)
{
    Events << QStringLiteral("box ") + box.Text;
    if (m_boxes.isEmpty() || m_boxes.first().Text != box.Text) {
        QTest::qFail(qPrintable(QStringLiteral("a box that was not foreseen: ") + box.Text),
                     __FILE__, __LINE__);
        return box.Buttons == BoxButtons::Ok ? BoxAnswer::Ok : BoxAnswer::No;
    }
    const ExpectedBox expected = m_boxes.takeFirst();
    if (expected.Whole && (expected.Whole->Title != box.Title || expected.Whole->Icon != box.Icon ||
                           expected.Whole->Buttons != box.Buttons))
        QTest::qFail(qPrintable(QStringLiteral("a box with another title, icon or buttons: ") +
                                box.Title + QStringLiteral(": ") + box.Text),
                     __FILE__, __LINE__);
    return expected.Answer;
}

QString ScriptedHost::InputBox(const QString &prompt, const QString &title, const QString &proposal)
{
    Events << QStringLiteral("input ") + prompt;
    if (m_boxes.isEmpty() || m_boxes.first().Text != prompt) {
        QTest::qFail(qPrintable(QStringLiteral("a question that was not foreseen: ") + prompt),
                     __FILE__, __LINE__);
        return {};
    }
    const ExpectedBox expected = m_boxes.takeFirst();
    if (!expected.Whole || expected.Whole->Title != title || !proposal.isEmpty())
        QTest::qFail(qPrintable(QStringLiteral("a question with another title or proposal: %1: %2 "
                                               "[%3]")
                                    .arg(title, prompt, proposal)),
                     __FILE__, __LINE__);
    return expected.Input;
}

void ScriptedHost::ExpectColor(std::optional<Color> answer)
{
    m_dialogs.append({.Kind = QStringLiteral("color"), .Color = answer});
}

void ScriptedHost::ExpectFont(const std::optional<FontChoice> &answer)
{
    m_dialogs.append({.Kind = QStringLiteral("font"), .Font = answer});
}

void ScriptedHost::ExpectFile(const QString &title, const QString &answer)
{
    m_dialogs.append({.Kind = QStringLiteral("file ") + title, .File = answer});
}

void ScriptedHost::ExpectModal(std::function<void(Form &)> person)
{
    m_dialogs.append({.Kind = QStringLiteral("modal"), .Person = std::move(person)});
}

ScriptedHost::ExpectedDialog ScriptedHost::NextDialog(const QString &kind)
{
    Events << QStringLiteral("dialog ") + kind;
    if (m_dialogs.isEmpty() || m_dialogs.first().Kind != kind) {
        QTest::qFail(qPrintable(QStringLiteral("a dialog that was not foreseen: ") + kind),
                     __FILE__, __LINE__);
        return {};
    }
    return m_dialogs.takeFirst();
}

std::optional<Color> ScriptedHost::ChooseColor()
{
    return NextDialog(QStringLiteral("color")).Color;
}

std::optional<FontChoice> ScriptedHost::ChooseFont()
{
    return NextDialog(QStringLiteral("font")).Font;
}

QString ScriptedHost::ChooseFile(const FileQuestion &question)
{
    LastFileQuestion = question;
    return NextDialog(QStringLiteral("file ") + question.Title).File;
}

void ScriptedHost::WaitForModal(ModalWindow &window)
{
    auto &form = dynamic_cast<Form &>(window);
    bool closed = false;
    form.WhenClosed([&closed] { closed = true; });
    const ExpectedDialog dialog = NextDialog(QStringLiteral("modal"));
    if (dialog.Person)
        dialog.Person(form);
    if (closed)
        return;
    QTest::qFail(qPrintable(form.Name() + QStringLiteral(" was left open")), __FILE__, __LINE__);
    form.WhenClosed(nullptr);
    form.Drop();
}

void ScriptedHost::PlaySound(const QString &nativePath)
{
    const QFileInfo file(nativePath);
    Events << QStringLiteral("suono %1/%2").arg(file.dir().dirName(), file.fileName());
}

void ScriptedHost::OpenDocument(const QString &nativePath)
{
    OpenedDocuments << nativePath;
    if (DocumentError != 0)
        throw RunTimeError(DocumentError, nativePath);
}

bool ScriptedHost::RegisterFont(const QString &nativePath)
{
    RegisteredFonts << nativePath;
    return QFileInfo::exists(nativePath);
}

void ScriptedHost::EndProgram()
{
    Events << QStringLiteral("end");
    Ended = true;
}

void ScriptedHost::FatalError(int number, const QString &text)
{
    Events << QStringLiteral("fatal %1").arg(number);
    FatalNumber = number;
    FatalText = text;
}

void DropForms()
{
    while (!Form::Loaded().empty())
        Form::Loaded().back()->Drop();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
