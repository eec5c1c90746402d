// The printing system of Linux and its like: it takes documents in PDF.
#include "platform/printing/spooler.h"

#include <QtGlobal>

#ifndef Q_OS_WIN

#include "platform/printing/cups.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSizeF>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace platform {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// An answer takes some 10 ms.
constexpr milliseconds LongestSilence(800);
// A printing system that is started on demand ends itself after a minute without work, and takes a
// second or two to be there again.
constexpr milliseconds LongestStart(5000);
constexpr std::chrono::minutes StaysAwake(1);
constexpr milliseconds LongestQuestion(20000); // also with answers all the while
constexpr milliseconds LongestHandOver(30000);
constexpr milliseconds LookRound(200); // how often a hand-over looks whether it is given up
constexpr double HundredthsPerPoint = 2540.0 / 72;
constexpr int AnyFamily = 0;
constexpr qsizetype Piece = 65536; // bytes of a document sent at once

// A connection of one thread; `waits` is asked each time that an answer has not come for `silence`.
class Connection {
public:
    Connection(const Cups &cups, milliseconds silence, milliseconds connect,
               std::function<bool()> waits)
        : m_cups(cups), m_waits(std::move(waits))
    {
        // The library's own way asks at the terminal.
        cups.SetPassword([](const char *, CupsConnection *, const char *, const char *,
                            void *) -> const char * { return nullptr; },
                         nullptr);
        m_connection =
            cups.Connect(cups.Server(), cups.Port(), nullptr, AnyFamily, cups.Encryption(),
                         CupsBlocking, static_cast<int>(connect.count()), nullptr);
        if (m_connection != nullptr)
            cups.SetTimeout(
                m_connection, static_cast<double>(silence.count()) / 1000,
                [](CupsConnection *, void *self) {
                    return static_cast<Connection *>(self)->m_waits() ? 1 : 0;
                },
                this);
    }
    ~Connection()
    {
        if (m_connection != nullptr)
            m_cups.Close(m_connection);
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    CupsConnection *Get() const { return m_connection; }

private:
    const Cups &m_cups;
    std::function<bool()> m_waits;
    CupsConnection *m_connection = nullptr;
};

// What one who asks and one who waits for the answer share.
template <typename Answer> class Slip {
public:
    // False when nobody waits for it any more.
    bool Give(std::optional<Answer> answer)
    {
        const std::lock_guard lock(m_mutex);
        if (std::exchange(m_done, true))
            return false;
        m_answer = std::move(answer);
        m_given.notify_all();
        return true;
    }
    // Something has come, and the answer may take longer.
    void Hear()
    {
        const std::lock_guard lock(m_mutex);
        m_heard = true;
        m_given.notify_all();
    }
    std::optional<Answer> Wait(milliseconds longest, std::optional<milliseconds> silence = {})
    {
        std::unique_lock lock(m_mutex);
        if (!silence || m_given.wait_for(lock, *silence, [this] { return m_done || m_heard; }))
            m_given.wait_for(lock, longest, [this] { return m_done; });
        m_done = true;
        return std::move(m_answer);
    }
    bool Done()
    {
        const std::lock_guard lock(m_mutex);
        return m_done;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_given;
    std::optional<Answer> m_answer;
    bool m_heard = false;
    bool m_done = false;
};

// When the printing system was asked last. Only the thread of the windows looks at it.
std::optional<Clock::time_point> &LastAsked()
{
    static std::optional<Clock::time_point> asked;
    return asked;
}

milliseconds Patience()
{
    const bool awake = LastAsked() && Clock::now() - *LastAsked() < StaysAwake;
    return awake ? LongestSilence : LongestStart;
}

// Told when the first answer has come.
using Heard = std::function<void()>;

// A thread of its own asks; a silence ends the waiting, whatever the thread still does. The library
// tells of one only after a second of its own, so until the first answer it is timed here.
template <typename Answer>
std::optional<Answer>
Ask(std::function<std::optional<Answer>(const Cups &, CupsConnection *, const Heard &)> question)
{
    const Cups *cups = TheCups();
    if (cups == nullptr)
        return {};
    auto slip = std::make_shared<Slip<Answer>>();
    const milliseconds patience = Patience();
    std::thread([cups, slip, patience, question = std::move(question)] {
        const Connection connection(*cups, patience, patience, [slip] {
            slip->Give({});
            return false;
        });
        if (connection.Get() == nullptr)
            slip->Give({});
        else
            slip->Give(question(*cups, connection.Get(), [slip] { slip->Hear(); }));
    }).detach();
    auto answer = slip->Wait(LongestQuestion, patience);
    LastAsked() = Clock::now();
    return answer;
}

QPageSize SizeOf(const CupsPaper &paper)
{
    return QPageSize(QSizeF(paper.Width, paper.Length) / HundredthsPerPoint, QPageSize::Point,
                     QString::fromUtf8(paper.Media), QPageSize::FuzzyOrientationMatch);
}

// The library marks what is printed to its edges, and the printing system does not know the mark.
QByteArray WithoutMark(QByteArray media)
{
    constexpr QByteArrayView Mark = "_borderless";
    if (media.endsWith(Mark))
        media.chop(Mark.size());
    return media;
}

PrinterPaper PaperOf(const CupsPaper &paper)
{
    return {SizeOf(paper), WithoutMark(paper.Media),
            QMarginsF(paper.Left, paper.Top, paper.Right, paper.Bottom) / HundredthsPerPoint};
}

double Free(const PrinterPaper &paper)
{
    const QMarginsF &margins = paper.Margins;
    return margins.left() + margins.top() + margins.right() + margins.bottom();
}

std::optional<PrinterList> List(const Cups &cups, CupsConnection *connection, const Heard &heard)
{
    // One short question first, since the list takes several.
    cups.DefaultPrinter(connection);
    heard();
    CupsPrinter *printers = nullptr;
    const int count = cups.Printers(connection, &printers);
    const bool failed = count == 0 && cups.LastError() > CupsLastGoodStatus;
    PrinterList list;
    for (int i = 0; i < count; ++i) {
        // Instances are choices of options for the same printer.
        const QString name = QString::fromUtf8(printers[i].Name);
        if (!list.Names.contains(name))
            list.Names << name;
        if (printers[i].IsDefault != 0)
            list.Default = name;
    }
    cups.FreePrinters(count, printers);
    return failed ? std::nullopt : std::optional(list);
}

// What the user has chosen for this printer, else what the printer takes by itself.
QByteArray OwnMedia(const Cups &cups, CupsConnection *connection, CupsPrinter *printer,
                    CupsPrinterFacts *facts)
{
    for (int i = 0; i < printer->OptionCount; ++i)
        if (qstrcmp(printer->Options[i].Name, "media") == 0 ||
            qstrcmp(printer->Options[i].Name, "PageSize") == 0)
            return printer->Options[i].Value;
    CupsAttribute *media = cups.FindDefault(connection, printer, facts, "media");
    return media != nullptr ? QByteArray(cups.String(media, 0, nullptr)) : QByteArray();
}

PrinterPapers PapersOf(const Cups &cups, CupsConnection *connection, CupsPrinter *printer,
                       CupsPrinterFacts *facts)
{
    PrinterPapers papers;
    const QByteArray own = WithoutMark(OwnMedia(cups, connection, printer, facts));
    const int count = cups.PaperCount(connection, printer, facts, 0);
    for (int i = 0; i < count; ++i) {
        CupsPaper paper{};
        if (cups.Paper(connection, printer, facts, i, 0, &paper) == 0)
            continue;
        const PrinterPaper found = PaperOf(paper);
        const QString key = found.Size.key();
        auto same =
            std::find_if(papers.All.begin(), papers.All.end(),
                         [&key](const PrinterPaper &known) { return known.Size.key() == key; });
        if (same == papers.All.end())
            same = papers.All.insert(same, found);
        else if (Free(*same) < Free(found))
            *same = found; // not the one that is printed to its edges
        if (own == found.Media || own == key.toUtf8())
            papers.Own = static_cast<int>(same - papers.All.begin());
    }
    if (papers.All.isEmpty())
        papers.All << PrinterPaper{QPageSize(QPageSize::A4), {}, {}};
    return papers;
}

std::optional<PrinterPapers> Papers(const Cups &cups, CupsConnection *connection,
                                    const QByteArray &name, const Heard &heard)
{
    CupsPrinter *printer = cups.PrinterNamed(connection, name.constData(), nullptr);
    if (printer == nullptr)
        return {};
    heard();
    std::optional<PrinterPapers> papers;
    if (CupsPrinterFacts *facts = cups.Facts(connection, printer)) {
        papers = PapersOf(cups, connection, printer, facts);
        cups.FreeFacts(facts);
    }
    cups.FreePrinters(1, printer);
    return papers;
}

// One document on its way, in a thread of its own.
class Delivery {
public:
    Delivery(const Cups &cups, const DocumentOrder &order, QByteArray pdf,
             std::shared_ptr<Slip<bool>> slip)
        : m_cups(cups), m_printer(order.Printer.toUtf8()), m_title(order.Title.toUtf8()),
          m_media(order.Paper.Media), m_across(order.Across), m_pdf(std::move(pdf)),
          m_slip(std::move(slip))
    {
    }

    void Run()
    {
        const int job = Send();
        if (m_taken && m_slip->Give(true))
            return;
        if (job > 0)
            Cancel(job);
        m_slip->Give(false);
    }

private:
    // The number of the job, below 1 when there is none.
    int Send()
    {
        // An answer about the job is waited for even when it is given up: only who knows its number
        // can cancel it.
        const Connection connection(m_cups, LookRound, LongestHandOver,
                                    [this] { return !m_sending || !m_slip->Done(); });
        if (connection.Get() == nullptr)
            return 0;
        QByteArray names[] = {"media", "sides", "landscape"};
        QByteArray values[] = {m_media, "one-sided", "true"};
        CupsOption options[3];
        int count = 0;
        for (int i = 0; i < 3; ++i)
            if (i == 0 ? !m_media.isEmpty() : i == 1 || m_across)
                options[count++] = {names[i].data(), values[i].data()};
        const int job = m_cups.CreateJob(connection.Get(), m_printer.constData(),
                                         m_title.constData(), count, options);
        if (job < 1 || m_slip->Done())
            return job;
        m_sending = true;
        int status = m_cups.StartDocument(connection.Get(), m_printer.constData(), job,
                                          m_title.constData(), "application/octet-stream", 1);
        for (qsizetype at = 0; status == CupsContinue && at < m_pdf.size(); at += Piece)
            status = m_cups.Write(connection.Get(), m_pdf.constData() + at,
                                  static_cast<unsigned long>(std::min(Piece, m_pdf.size() - at)));
        if (status == CupsContinue && !m_slip->Done())
            m_taken = m_cups.FinishDocument(connection.Get(), m_printer.constData()) <=
                      CupsLastGoodStatus;
        return job;
    }

    // However long that takes, over a connection that waits for no other answer.
    void Cancel(int job)
    {
        const Connection connection(m_cups, LookRound, LongestHandOver, [] { return true; });
        if (connection.Get() != nullptr)
            m_cups.CancelJob(connection.Get(), m_printer.constData(), job, 0);
    }

    const Cups &m_cups;
    QByteArray m_printer;
    QByteArray m_title;
    QByteArray m_media;
    bool m_across;
    QByteArray m_pdf;
    std::shared_ptr<Slip<bool>> m_slip;
    bool m_sending = false;
    bool m_taken = false;
};

// Pages as they are written, in memory: one that is not sent simply goes.
class PdfDocument : public PrinterDocument {
public:
    explicit PdfDocument(const DocumentOrder &order) : m_order(order)
    {
        m_pdf.open(QIODevice::WriteOnly);
        m_writer = std::make_unique<QPdfWriter>(&m_pdf);
        m_writer->setTitle(order.Title);
        m_writer->setResolution(DotsPerInch);
        QPageLayout layout(order.Paper.Size,
                           order.Across ? QPageLayout::Landscape : QPageLayout::Portrait, {});
        layout.setMode(QPageLayout::FullPageMode);
        m_writer->setPageLayout(layout);
    }

    QPagedPaintDevice &Pages() override { return *m_writer; }
    void TakeBack() override {}
    bool HandOver() override
    {
        const Cups *cups = TheCups();
        if (cups == nullptr)
            return false;
        auto slip = std::make_shared<Slip<bool>>();
        std::thread([delivery = std::make_shared<Delivery>(*cups, m_order, m_pdf.data(), slip)] {
            delivery->Run();
        }).detach();
        const bool taken = slip->Wait(LongestHandOver).value_or(false);
        LastAsked() = Clock::now();
        return taken;
    }

private:
    DocumentOrder m_order;
    QBuffer m_pdf;
    std::unique_ptr<QPdfWriter> m_writer;
};

} // namespace

std::optional<PrinterList> AskPrinterList()
{
    return Ask<PrinterList>(List);
}

std::optional<PrinterPapers> AskPrinterPapers(const QString &printer)
{
    return Ask<PrinterPapers>([name = printer.toUtf8()](const Cups &cups,
                                                        CupsConnection *connection,
                                                        const Heard &heard) {
        return Papers(cups, connection, name, heard);
    });
}

std::unique_ptr<PrinterDocument> BeginDocument(const DocumentOrder &order)
{
    return std::make_unique<PdfDocument>(order);
}

} // namespace platform

#endif
