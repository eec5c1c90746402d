// The cursive font that is made at build time: its family, its letters, its joins and its licence.
#include "support/registered_tests.h"

#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QRawFont>
#include <QTest>
#include <QTextLayout>

namespace {

const QString FontFile = QStringLiteral(APPLICATION_DIR "/indis1.ttf");

QList<quint32> GlyphsOf(const QString &text)
{
    QFont font(QStringLiteral("Indis1"));
    font.setPixelSize(32);
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QList<quint32> glyphs;
    for (const QGlyphRun &run : layout.glyphRuns())
        glyphs << run.glyphIndexes();
    return glyphs;
}

} // namespace

class TestFont : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFamilyIsTheOneThatTheProgramAsksFor()
    {
        const int id = QFontDatabase::addApplicationFont(FontFile);
        QVERIFY(id >= 0);
        QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList{QStringLiteral("Indis1")});
    }

    void everyLetterOfFiveLanguagesIsThere()
    {
        const QRawFont font(FontFile, 32);
        QVERIFY(font.isValid());
        const QString letters =
            QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"
                           "àèéìíîòóùúÀÈÉÌÍÎÒÓÙÚ"   // Italian
                           "âæçêëïôœûüÿÂÆÇÊËÏÔŒÛÜŸ" // French
                           "áñÁÑ¿¡"                 // Spanish
                           "äöüßÄÖÜ"                // German
                           "'\"’‘“”«»„€.,;:!?()-–…°");
        for (const QChar letter : letters)
            QVERIFY2(font.supportsCharacter(letter), qPrintable(QString(letter)));
    }

    void lettersAreJoinedByTheirNeighbours()
    {
        QVERIFY(QFontDatabase::addApplicationFont(FontFile) >= 0);
        const QString word = QStringLiteral("bove");
        QList<quint32> alone;
        for (const QChar letter : word)
            alone << GlyphsOf(QString(letter));
        const QList<quint32> together = GlyphsOf(word);
        QVERIFY(!together.isEmpty());
        QVERIFY(together != alone);
    }

    void theLicenceLiesBesideIt()
    {
        QFile licence(QStringLiteral(APPLICATION_DIR "/indis1-LICENSE.txt"));
        QVERIFY(licence.open(QIODevice::ReadOnly));
        QVERIFY(licence.readAll().contains("SIL OPEN FONT LICENSE Version 1.1"));
    }
};

MORLENE_TEST(TestFont)
#include "test_font.moc"
