// The 216 colours: their order, their two forms, and the way back from a literal.
#include "core/palette.h"

#include "core/shared_state.h"
#include "platform/errors.h"
#include "support/registered_tests.h"

#include <QSet>
#include <QTest>

using namespace platform;

class TestPalette : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { PreparaColoriWeb(); }

    void theOrderIsTheFixedOne()
    {
        // The first and the last of each line of sixteen, and the one colour with a name.
        const QList<std::pair<int, const char *>> known = {
            {0, "FFFFFF"},   {6, "FFCC00"},   {15, "FF6633"},  {16, "CC3300"},  {31, "FF0000"},
            {32, "FF3366"},  {47, "CC3366"},  {48, "FF6699"},  {63, "CC3399"},  {64, "FF66CC"},
            {79, "990066"},  {80, "FF33CC"},  {95, "660033"},  {96, "CC0099"},  {111, "006600"},
            {112, "336633"}, {127, "339966"}, {128, "66CC99"}, {143, "00CC66"}, {144, "33FF99"},
            {159, "009966"}, {160, "66FFFF"}, {175, "33FFFF"}, {176, "33CCCC"}, {191, "00CCCC"},
            {192, "009999"}, {207, "66CCFF"}, {208, "6699FF"}, {215, "0033FF"}};
        for (const auto &[index, colour] : known)
            QCOMPARE(ColoriWebHex.at(static_cast<size_t>(index)), QString::fromLatin1(colour));
    }

    void everyWebSafeColourIsThereOnce()
    {
        const QSet<QString> steps = {QStringLiteral("00"), QStringLiteral("33"),
                                     QStringLiteral("66"), QStringLiteral("99"),
                                     QStringLiteral("CC"), QStringLiteral("FF")};
        QSet<QString> seen;
        for (const QString &colour : ColoriWebHex) {
            QCOMPARE(colour.size(), 6);
            for (int at = 0; at < 6; at += 2)
                QVERIFY2(steps.contains(colour.mid(at, 2)), qPrintable(colour));
            seen << colour;
        }
        QCOMPARE(seen.size(), 216);
    }

    void aLiteralIsTheSameColourTurnedRound()
    {
        QCOMPARE(ColoriWebLetterali.at(6), QStringLiteral("&H0000CCFF&"));
        QCOMPARE(ColoriWebLetterali.at(32), QStringLiteral("&H006633FF&"));
        for (size_t i = 0; i < ColoriWebHex.size(); ++i) {
            const QString &hex = ColoriWebHex.at(i);
            const int red = hex.mid(0, 2).toInt(nullptr, 16);
            const int green = hex.mid(2, 2).toInt(nullptr, 16);
            const int blue = hex.mid(4, 2).toInt(nullptr, 16);
            QCOMPARE(ConvertiLetterale(ColoriWebLetterali.at(i)), Rgb(red, green, blue));
        }
    }

    void aLiteralMayBeASystemColour()
    {
        QCOMPARE(ConvertiLetterale(QStringLiteral("&H8000000F&")), SystemButtonFace);
        QCOMPARE(ConvertiLetterale(QStringLiteral("&hff")), Color(255));
    }

    void anythingElseIsTheWrongType_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text : {"", "&H", "&H&", "FFCC00", "&HGG&", "&H-1&", "&H0x1&", "&H1 &",
                                 "&H100000000&", "&H1&&"})
            QTest::newRow(text) << QString::fromLatin1(text);
    }
    void anythingElseIsTheWrongType()
    {
        QFETCH(QString, text);
        QCOMPARE(Skipping([&] { ConvertiLetterale(text); }), int(TypeMismatch));
    }
};

MORLENE_TEST(TestPalette)
#include "test_palette.moc"
