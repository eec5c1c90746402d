// Every text of the exercises is seen whole and in letters that a child can read: in each
// lettering, size, language and on each screen. With SHOW_SIZES in the environment the table is
// printed.
#include "core/lettering.h"
#include "exercises/form_es1.h"
#include "exercises/form_es2.h"
#include "exercises/form_es3.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "exercises/form_es6.h"
#include "exercises/form_es7.h"
#include "exercises/form_es8.h"
#include "support/language_file.h"
#include "support/registered_tests.h"
#include "support/speaking_player.h"

#include <QFontDatabase>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QSet>

#include <algorithm>
#include <cstdio>

using namespace platform;

namespace {

constexpr double LargeSize = 24;     // points of a player who needs large letters
constexpr double SmallestDrawn = 14; // points, of those
constexpr int Tasks = 30;            // drawn on each level
constexpr int LongTexts = 4;         // of a level, measured in every case
constexpr int OtherTexts = 1;

const QList<double> Sizes = {14, 24, 36, 48};
const QList<ScreenSize> Screens = {{1024, 768}, {1366, 768}, {1920, 1080}, {3840, 2160}};
const QStringList Letterings = {QStringLiteral("minuscolo"), QStringLiteral("maiuscolo"),
                                QStringLiteral("corsivo")};

Label &TextOf(TreBottoni &form)
{
    return form.Label1;
}
Label &TextOf(Differenze &form)
{
    return form.Label1;
}
TextBox &TextOf(FormEs4 &form)
{
    return form.Text1;
}
TextBox &TextOf(GrigliaFigure &form)
{
    return form.Text1;
}
QString Read(const Label &label)
{
    return label.Caption();
}
QString Read(const TextBox &page)
{
    return page.Text();
}
void Write(Label &label, const QString &text)
{
    label.SetCaption(text);
}
void Write(TextBox &page, const QString &text)
{
    page.SetText(text);
}

// The longest ones and some others.
QStringList Chosen(const QSet<QString> &all)
{
    QStringList texts(all.cbegin(), all.cend());
    std::sort(texts.begin(), texts.end(), [](const QString &left, const QString &right) {
        return left.size() != right.size() ? left.size() > right.size() : left < right;
    });
    QStringList chosen = texts.mid(0, LongTexts);
    const QStringList rest = texts.mid(LongTexts);
    const auto step = std::max<qsizetype>(1, rest.size() / OtherTexts);
    for (qsizetype i = 0; i < rest.size() && chosen.size() < LongTexts + OtherTexts; i += step)
        chosen << rest.at(i);
    return chosen;
}

void Dress(const QString &lettering)
{
    TipoCarattere = lettering;
    FontCorrente =
        lettering == QStringLiteral("corsivo") ? QStringLiteral("Indis1") : QStringLiteral("arial");
}

// The texts of the tasks drawn on each level.
template <typename Window> QMap<int, QStringList> TextsOf(const QString &language, int levels)
{
    SpeakingPlayer player(language);
    Dress(Letterings.first());
    player.Host.Seed(4711);
    auto &form = player.Open<Window>();
    form.LockDrawing(true);
    player.Host.Watching = false;
    QMap<int, QStringList> texts;
    for (int level = 1; level <= levels; ++level) {
        QSet<QString> seen;
        for (int task = 0; task < Tasks; ++task) {
            form.mnuLiv.OnClick(level);
            NumeroEserciziEseguiti = 1; // a change of level opens a row
            seen << Read(TextOf(form));
        }
        texts[level] = Chosen(seen);
    }
    DropForms();
    return texts;
}

// What a table of sizes tells of the texts of one level.
struct Summary {
    double Smallest = 1000;
    int Columns = 0;
    int Cut = 0;
    int Texts = 0;
    QString Text; // the one drawn smallest

    void Add(const QString &text, const DrawnText &drawn)
    {
        ++Texts;
        Cut += drawn.Whole ? 0 : 1;
        Columns = std::max(Columns, drawn.Columns);
        if (drawn.Points >= Smallest)
            return;
        Smallest = drawn.Points;
        Text = text;
    }
};

bool Printing()
{
    return qEnvironmentVariableIsSet("SHOW_SIZES");
}

void Judge(const QString &what, double size, const Summary &summary)
{
    if (Printing())
        std::printf("%-58s %3.0f  %5.2f  %d  %d of %-3d %s\n", qPrintable(what), size,
                    summary.Smallest, summary.Columns, summary.Cut, summary.Texts,
                    qPrintable(summary.Text.simplified()));
    QVERIFY2(summary.Texts > 0, qPrintable(what));
    QVERIFY2(summary.Cut == 0, qPrintable(what));
    const double least = std::min(size, SmallestDrawn);
    QVERIFY2(summary.Smallest >= least, qPrintable(QStringLiteral("%1, size %2: %3 points: %4")
                                                       .arg(what)
                                                       .arg(size)
                                                       .arg(summary.Smallest)
                                                       .arg(summary.Text)));
}

// In a window as it stands on one screen: the longest text in each size, the others in the largest
// only, since whoever asks for smaller letters gets the same ones down to those, or a point less.
template <typename Window> QMap<double, Summary> Measured(Window &form, const QStringList &texts)
{
    QMap<double, Summary> sizes;
    for (const QString &text : texts) {
        Write(TextOf(form), text);
        TextOf(form).SetFontSize(Sizes.last());
        const DrawnText largest = TextOf(form).Drawn();
        for (const double size : Sizes) {
            DrawnText drawn = largest;
            if (text == texts.first()) {
                TextOf(form).SetFontSize(size);
                drawn = TextOf(form).Drawn();
            }
            drawn.Points = std::min(size, drawn.Points);
            sizes[size].Add(text, drawn);
        }
    }
    return sizes;
}

template <typename Window> void JudgeTexts(const QString &name, int levels)
{
    for (const QString &file : LanguageNames()) {
        const QString language = LanguageOf(file);
        const QMap<int, QStringList> texts = TextsOf<Window>(language, levels);
        for (const QString &lettering : Letterings)
            for (const ScreenSize &screen : Screens) {
                SpeakingPlayer player(language);
                player.Host.ScreenSizeNow = screen;
                Dress(lettering);
                player.Host.Seed(4711);
                // Laid out and never painted: what is drawn is what was measured.
                auto &form = *new Window;
                NumeroEserciziEseguiti = 1;
                form.Show();
                form.LockDrawing(true);
                QCoreApplication::processEvents();
                for (int level = 1; level <= levels; ++level) {
                    QStringList written = texts[level];
                    if (lettering == QStringLiteral("maiuscolo"))
                        for (QString &text : written)
                            text = InMaiuscolo(text);
                    const auto sizes = Measured(form, written);
                    for (const double size : Sizes) {
                        Judge(QStringLiteral("%1 level %2 %3 %4 %5x%6")
                                  .arg(name)
                                  .arg(level)
                                  .arg(language, lettering)
                                  .arg(screen.Width)
                                  .arg(screen.Height),
                              size, sizes[size]);
                        if (QTest::currentTestFailed())
                            return;
                    }
                }
                DropForms();
            }
    }
}

} // namespace

class TestTextSizes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QFontDatabase::addApplicationFont(QStringLiteral(APPLICATION_DIR "/indis1.ttf")) >=
                0);
    }

    // The strokes that end and begin a word leave a quarter of a letter's size between them.
    void wordsInJoinedLettersStandApart()
    {
        constexpr int Size = 100;
        QFont font(QStringLiteral("Indis1"));
        font.setPixelSize(Size);
        for (const char *words : {"e e", "e b", "o l", "e n"}) {
            QImage image(4 * Size, 3 * Size, QImage::Format_Grayscale8);
            image.fill(Qt::white);
            QPainter painter(&image);
            painter.setFont(font);
            painter.drawText(image.rect(), Qt::AlignCenter, QString::fromLatin1(words));
            painter.end();
            const auto inked = [&image](int x) {
                for (int y = 0; y < image.height(); ++y)
                    if (image.pixelColor(x, y).lightness() < 128)
                        return true;
                return false;
            };
            int left = 0;
            while (!inked(left))
                ++left;
            int widest = 0;
            for (int x = left, gap = 0; x < image.width(); ++x) {
                if (inked(x)) {
                    widest = std::max(widest, gap);
                    gap = 0;
                } else {
                    ++gap;
                }
            }
            QVERIFY2(widest >= Size / 4, qPrintable(QString::number(widest)));
        }
    }

    void everySentenceIsWholeAndLarge_data()
    {
        QTest::addColumn<int>("exercise");
        for (const int exercise : {1, 2, 3, 4, 5, 6, 7, 8})
            QTest::addRow("exercise %d", exercise) << exercise;
    }

    void everySentenceIsWholeAndLarge()
    {
        QFETCH(int, exercise);
        switch (exercise) {
        case 1:
            return JudgeTexts<FormEs1>(QStringLiteral("exercise 1"), 6);
        case 2:
            return JudgeTexts<FormEs2>(QStringLiteral("exercise 2"), 3);
        case 3:
            return JudgeTexts<FormEs3>(QStringLiteral("exercise 3"), 1);
        case 4:
            return JudgeTexts<FormEs4>(QStringLiteral("exercise 4"), 6);
        case 5:
            return JudgeTexts<FormEs5>(QStringLiteral("exercise 5"), 4);
        case 6:
            return JudgeTexts<FormEs6>(QStringLiteral("exercise 6"), 5);
        case 7:
            return JudgeTexts<FormEs7>(QStringLiteral("exercise 7"), 5);
        default:
            return JudgeTexts<FormEs8>(QStringLiteral("exercise 8"), 1);
        }
    }
};

MORLENE_TEST(TestTextSizes)

#include "test_text_sizes.moc"
