// Texts are drawn as large as they fit, with nothing cut: not a line, not a word, not a stroke.
#include "platform/base/fitted_text.h"

#include "support/registered_tests.h"

#include <QFontDatabase>
#include <QImage>
#include <QPainter>
#include <QTest>

using namespace platform;

namespace {

constexpr int Around = 60; // pixels of paper on each side of the place

QImage Painted(const FittedText &text, const QSize &room)
{
    QImage paper(room + QSize(2 * Around, 2 * Around), QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter painter(&paper);
    painter.setRenderHint(QPainter::Antialiasing);
    text.Draw(painter, {Around, Around});
    return paper;
}

// Where ink lies in the place, counted from its corner.
QRect InkIn(const QImage &paper)
{
    QRect ink;
    for (int y = 0; y < paper.height(); ++y)
        for (int x = 0; x < paper.width(); ++x)
            if (qGray(paper.pixel(x, y)) < 160)
                ink |= QRect(x - Around, y - Around, 1, 1);
    return ink;
}

Font FontNamed(const QString &name, double points)
{
    Font font;
    font.Name = name;
    font.Size = points;
    return font;
}

const QString SixSentences =
    QStringLiteral("Il comignolo non è verde.\r\nLe finestre non sono gialle.\r\n"
                   "La porta è rossa.\r\nIl gradino è blu.\r\nLe pareti non sono gialle.\r\n"
                   "Il tetto è giallo.\r\n");

} // namespace

static double FittingPoints(const QString &text, const Font &font, const QSize &room)
{
    return FittedText(text, font, room, Qt::AlignLeft).Drawn().Points;
}

class TestFittedText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QFontDatabase::addApplicationFont(QStringLiteral(APPLICATION_DIR "/indis1.ttf")) >=
                0);
    }

    void aTextThatFitsIsDrawnInItsOwnSize()
    {
        const Font font = FontNamed(QStringLiteral("arial"), 24);
        QCOMPARE(FittingPoints(QStringLiteral("Vero"), font, QSize(400, 200)), 24.0);
        const Font small = FontNamed(QStringLiteral("arial"), 9);
        QCOMPARE(FittingPoints(QStringLiteral("Vero"), small, QSize(400, 200)), 9.0);
    }

    void aTextThatDoesNotFitIsDrawnAsLargeAsItDoes()
    {
        const QString text = QStringLiteral("Il comignolo non è verde ").repeated(4);
        const Font font = FontNamed(QStringLiteral("arial"), 24);
        const QSize room(220, 120);
        const FittedText fitted(text, font, room, Qt::AlignLeft);
        QVERIFY(fitted.Drawn().Whole);
        QVERIFY(fitted.Drawn().Points < 24);
        // Larger by one pixel it does not fit.
        Font larger = font;
        larger.Size = fitted.Drawn().Points + 0.75;
        QCOMPARE(FittingPoints(text, larger, room), fitted.Drawn().Points);
        // However long it is, it is made smaller before it is cut.
        const FittedText longer(text.repeated(4), font, room, Qt::AlignLeft);
        QVERIFY(longer.Drawn().Whole);
        QVERIFY(longer.Drawn().Points < 11);
        QVERIFY(!FittedText(text, font, QSize(5, 5), Qt::AlignLeft).Drawn().Whole);
    }

    void aLongWordIsMadeSmallerAndNotBroken()
    {
        const Font font = FontNamed(QStringLiteral("arial"), 24);
        const FittedText word(QStringLiteral("precipitevolissimevolmente"), font, QSize(200, 400),
                              Qt::AlignLeft);
        QVERIFY(word.Drawn().Points < 24);
        const QRect ink = InkIn(Painted(word, QSize(200, 400)));
        QVERIFY(ink.right() < 200);
        QVERIFY(ink.height() < 40); // one line
    }

    void noStrokeLeavesThePlace_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<bool>("bold");
        QTest::addColumn<bool>("italic");
        for (const char *const family : {"arial", "Verdana", "Comic Sans MS", "Indis1"})
            for (const bool bold : {false, true})
                for (const bool italic : {false, true})
                    QTest::addRow("%s%s%s", family, bold ? " bold" : "", italic ? " italic" : "")
                        << QString::fromLatin1(family) << bold << italic;
    }

    void noStrokeLeavesThePlace()
    {
        QFETCH(QString, family);
        QFETCH(bool, bold);
        QFETCH(bool, italic);
        const QStringList texts = {
            SixSentences,
            SixSentences.toUpper(),
            QStringLiteral("Å fjord, bella gru: C'È GIÀ LÀ!"),
            QStringLiteral("ff\njj\n\ngloria"),
        };
        for (const QString &text : texts)
            for (const QSize &room : {QSize(300, 370), QSize(960, 118), QSize(200, 130)})
                for (const int flags :
                     {int(Qt::AlignLeft), int(Qt::AlignCenter), int(Qt::AlignRight)})
                    for (const int columns : {1, 3}) {
                        Font font = FontNamed(family, 48);
                        font.Bold = bold;
                        font.Italic = italic;
                        const FittedText fitted(text, font, room, flags, columns);
                        QVERIFY2(fitted.Drawn().Whole, qPrintable(text));
                        const QRect ink = InkIn(Painted(fitted, room));
                        QVERIFY(!ink.isEmpty());
                        QVERIFY2(QRect(QPoint(), room).contains(ink),
                                 qPrintable(QStringLiteral("%1 at %2: %3,%4 %5,%6 in %7x%8")
                                                .arg(text)
                                                .arg(fitted.Drawn().Points)
                                                .arg(ink.left())
                                                .arg(ink.top())
                                                .arg(ink.right())
                                                .arg(ink.bottom())
                                                .arg(room.width())
                                                .arg(room.height())));
                    }
    }

    void sentencesStandInColumnsBeforeTheyAreMadeSmaller()
    {
        const Font font = FontNamed(QStringLiteral("arial"), 24);
        const QSize wide(960, 118);
        const double inOne = FittedText(SixSentences, font, wide, Qt::AlignLeft).Drawn().Points;
        const DrawnText drawn = FittedText(SixSentences, font, wide, Qt::AlignLeft, 3).Drawn();
        QVERIFY(drawn.Columns > 1);
        QVERIFY(drawn.Points > inOne);
        // Where columns do not help there are none.
        QCOMPARE(FittedText(SixSentences, font, QSize(960, 600), Qt::AlignLeft, 3).Drawn().Columns,
                 1);
        const FittedText one(QStringLiteral("Le finestre non sono gialle."), font, QSize(200, 60),
                             Qt::AlignLeft, 3);
        QCOMPARE(one.Drawn().Columns, 1);
    }

    void columnsAreReadDownwardsAndAreOfOneWidth()
    {
        // Six sentences, each longer than the one before it.
        const QString text = QStringLiteral("I\r\nIII\r\nIIIII\r\nIIIIIII\r\nIIIIIIIII\r\n"
                                            "IIIIIIIIIII\r\n");
        const QSize room(900, 90);
        const FittedText fitted(text, FontNamed(QStringLiteral("arial"), 24), room, Qt::AlignLeft,
                                3);
        QCOMPARE(fitted.Drawn().Columns, 3);
        QCOMPARE(fitted.Drawn().Points, 24.0);
        const QImage paper = Painted(fitted, room);
        QList<int> widths;
        QList<int> lefts;
        for (int column = 0; column < 3; ++column)
            for (int line = 0; line < 2; ++line) {
                const QRect cell(Around + 300 * column, Around + 45 * line, 300, 45);
                QImage alone = paper;
                alone.fill(Qt::white);
                QPainter(&alone).drawImage(cell.topLeft(), paper, cell);
                const QRect ink = InkIn(alone);
                widths << ink.width();
                lefts << ink.left();
            }
        for (qsizetype i = 1; i < widths.size(); ++i)
            QVERIFY(widths.at(i) > widths.at(i - 1));
        QCOMPARE(lefts.at(1), lefts.at(0));
        QVERIFY(std::abs((lefts.at(4) - lefts.at(2)) - (lefts.at(2) - lefts.at(0))) <= 1);
    }

    void theLetterOfAMnemonicIsUnderlined()
    {
        const Font font = FontNamed(QStringLiteral("arial"), 24);
        const QSize room(200, 60);
        const int flags = Qt::AlignCenter | Qt::TextShowMnemonic;
        const QRect plain = InkIn(Painted({QStringLiteral("Esci"), font, room, flags}, room));
        const QRect marked = InkIn(Painted({QStringLiteral("&Esci"), font, room, flags}, room));
        QCOMPARE(marked.right(), plain.right());
        QCOMPARE(marked.top(), plain.top());
        QVERIFY(marked.bottom() > plain.bottom());
        QCOMPARE(InkIn(Painted({QStringLiteral("E&&E"), font, room, flags}, room)),
                 InkIn(Painted({QStringLiteral("E&E"), font, room, Qt::AlignCenter}, room)));
    }
};

MORLENE_TEST(TestFittedText)

#include "test_fitted_text.moc"
