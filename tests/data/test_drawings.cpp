// The drawings that lie beside the program: the figure keeps what the exercises need of it, and
// every picture can be drawn and told from the others.
#include "support/registered_tests.h"

#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QImage>
#include <QMap>
#include <QPainter>
#include <QSvgRenderer>
#include <QTest>

namespace {

const QStringList Parts = {QStringLiteral("comignolo"), QStringLiteral("tetto"),
                           QStringLiteral("pareti"),    QStringLiteral("finestre"),
                           QStringLiteral("porta"),     QStringLiteral("gradino"),
                           QStringLiteral("fumo"),      QStringLiteral("nuvole")};

// Where a figure is smallest, in pixels: the grids of ten.
constexpr QSize SmallestFigure(80, 110);

QString DataPath(const QString &path)
{
    return QStringLiteral(SOURCE_DIR "/data/") + path;
}

QDomDocument Read(const QString &path)
{
    QFile file(path);
    QDomDocument document;
    if (!file.open(QIODevice::ReadOnly) || !document.setContent(file.readAll()))
        qWarning("cannot read %s", qPrintable(path));
    return document;
}

QDomElement WithId(const QDomElement &element, const QString &id)
{
    if (element.attribute(QStringLiteral("id")) == id)
        return element;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QDomElement found = WithId(child, id);
        if (!found.isNull())
            return found;
    }
    return {};
}

QImage Drawn(const QByteArray &svg, QSize size, const QColor &background = Qt::transparent)
{
    QSvgRenderer renderer(svg);
    if (!renderer.isValid())
        return {};
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage image(size, QImage::Format_ARGB32);
    image.fill(background);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
    return image;
}

QColor ColorOfPart(qsizetype part)
{
    return QColor::fromHsv(int(part) * 45, 255, 255);
}

void SetStyle(const QDomDocument &figure, const QString &id, const QString &property,
              const QString &value)
{
    QDomElement element = WithId(figure.documentElement(), id);
    QStringList style;
    for (const QString &entry : element.attribute(QStringLiteral("style")).split(u';')) {
        const bool same = entry.section(u':', 0, 0).trimmed() == property;
        style << (same ? property + u':' + value : entry);
    }
    element.setAttribute(QStringLiteral("style"), style.join(u';'));
}

// The pixels of each part when the figure is drawn in its smallest place, every part in a colour
// of its own; with its outline, which takes a click as well, or the painted inside alone.
QMap<QString, int> Covered(QDomDocument figure, bool withOutlines)
{
    for (qsizetype i = 0; i < Parts.size(); ++i) {
        const QString color = ColorOfPart(i).name();
        SetStyle(figure, Parts[i] + QStringLiteral(".interno"), QStringLiteral("fill"), color);
        if (withOutlines)
            SetStyle(figure, Parts[i] + QStringLiteral(".contorno"), QStringLiteral("stroke"),
                     color);
        QDomElement shade = WithId(figure.documentElement(), Parts[i] + QStringLiteral(".ombra"));
        if (!shade.isNull())
            shade.parentNode().removeChild(shade);
    }
    const QImage image = Drawn(figure.toByteArray(), SmallestFigure, Qt::white);
    QMap<QString, int> covered;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            for (qsizetype i = 0; i < Parts.size(); ++i) {
                if (image.pixelColor(x, y).rgb() == ColorOfPart(i).rgb())
                    ++covered[Parts[i]];
            }
        }
    }
    return covered;
}

QStringList Pictures()
{
    return QDir(DataPath(QStringLiteral("images"))).entryList({QStringLiteral("*.svg")});
}

} // namespace

class TestDrawings : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyPartIsEasyToHitInTheSmallestPlace_data() { Figures(); }
    void everyPartIsEasyToHitInTheSmallestPlace();
    void thePaintOfEveryPartIsSeenInTheSmallestPlace_data() { Figures(); }
    void thePaintOfEveryPartIsSeenInTheSmallestPlace();
    void smokeAndCloudsCanBeHiddenAlone_data() { Figures(); }
    void smokeAndCloudsCanBeHiddenAlone();
    void theFigureHasNoBackgroundOfItsOwn_data() { Figures(); }
    void theFigureHasNoBackgroundOfItsOwn();
    void everyPictureThatWindowsNameIsThere();
    void everyPictureCanBeSeenAtItsSmallest_data() { PictureRows(); }
    void everyPictureCanBeSeenAtItsSmallest();
    void everyPictureIsFlatAndWithoutText_data() { PictureRows(); }
    void everyPictureIsFlatAndWithoutText();
    void noTwoPicturesLookAlikeWithoutColour();
    void thePointersHotSpotIsTheTipOfItsFinger();

private:
    static void Figures();
    static void PictureRows();
};

void TestDrawings::Figures()
{
    QTest::addColumn<QString>("path");
    for (const auto *name : {"morlene1", "morlena0"})
        QTest::newRow(name) << DataPath(QStringLiteral("swf/%1.svg").arg(QLatin1String(name)));
}

void TestDrawings::PictureRows()
{
    QTest::addColumn<QString>("path");
    for (const QString &name : Pictures())
        QTest::newRow(qPrintable(name)) << DataPath(QStringLiteral("images/") + name);
}

void TestDrawings::everyPartIsEasyToHitInTheSmallestPlace()
{
    QFETCH(QString, path);
    const QMap<QString, int> covered = Covered(Read(path), true);
    for (const QString &part : Parts)
        QVERIFY2(covered[part] >= 60,
                 qPrintable(QStringLiteral("%1: %2 square pixels").arg(part).arg(covered[part])));
}

void TestDrawings::thePaintOfEveryPartIsSeenInTheSmallestPlace()
{
    QFETCH(QString, path);
    const QMap<QString, int> painted = Covered(Read(path), false);
    for (const QString &part : Parts)
        QVERIFY2(painted[part] >= 30,
                 qPrintable(QStringLiteral("%1: %2 square pixels").arg(part).arg(painted[part])));
}

void TestDrawings::smokeAndCloudsCanBeHiddenAlone()
{
    QFETCH(QString, path);
    const QMap<QString, int> before = Covered(Read(path), true);
    for (const QString &hidden : {QStringLiteral("fumo"), QStringLiteral("nuvole")}) {
        const QDomDocument figure = Read(path);
        WithId(figure.documentElement(), hidden)
            .setAttribute(QStringLiteral("display"), QStringLiteral("none"));
        const QMap<QString, int> after = Covered(figure, true);
        QCOMPARE(after[hidden], 0);
        for (const QString &part : Parts)
            QVERIFY2(part == hidden || after[part] >= before[part], qPrintable(part));
    }
}

void TestDrawings::theFigureHasNoBackgroundOfItsOwn()
{
    QFETCH(QString, path);
    const QImage image = Drawn(Read(path).toByteArray(), SmallestFigure);
    for (const QPoint corner : {QPoint(0, 0), QPoint(79, 0), QPoint(0, 109), QPoint(79, 109)})
        QCOMPARE(image.pixelColor(corner).alpha(), 0);
    QCOMPARE(image.pixelColor(0, 95).alpha(), 0);
}

void TestDrawings::everyPictureThatWindowsNameIsThere()
{
    const QStringList there = Pictures();
    for (const auto *name :
         {"vero_o_falso", "uguale_diverso", "uguali_1", "uguali_2", "colora", "insiemi", "intrusi",
          "indovina", "esci", "prossimo", "avanti", "titolo", "mano", "icona"})
        QVERIFY2(there.contains(QLatin1String(name) + QStringLiteral(".svg")), name);
}

void TestDrawings::everyPictureCanBeSeenAtItsSmallest()
{
    QFETCH(QString, path);
    const QImage image = Drawn(Read(path).toByteArray(), QSize(32, 32));
    QVERIFY2(!image.isNull(), "no drawing that can be rendered");
    int opaque = 0;
    int dark = 0;
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            const QColor color = image.pixelColor(x, y);
            opaque += color.alpha() > 200 ? 1 : 0;
            dark += color.alpha() > 200 && color.lightness() < 100 ? 1 : 0;
        }
    }
    QVERIFY2(opaque > 32 * 32 / 5, qPrintable(QString::number(opaque)));
    QVERIFY2(dark > 32 * 32 / 25, qPrintable(QString::number(dark)));
}

void TestDrawings::everyPictureIsFlatAndWithoutText()
{
    QFETCH(QString, path);
    const QDomDocument picture = Read(path);
    for (const auto *tag : {"text", "image", "linearGradient", "radialGradient", "clipPath", "mask",
                            "filter", "pattern", "style"})
        QVERIFY2(picture.elementsByTagName(QLatin1String(tag)).isEmpty(), tag);
    const QStringList box =
        picture.documentElement().attribute(QStringLiteral("viewBox")).split(u' ');
    QCOMPARE(box.size(), 4);
    if (!path.endsWith(QStringLiteral("titolo.svg")))
        QCOMPARE(box[2], box[3]);
}

void TestDrawings::noTwoPicturesLookAlikeWithoutColour()
{
    QMap<QString, QImage> grey;
    for (const QString &name : Pictures()) {
        const QByteArray svg = Read(DataPath(QStringLiteral("images/") + name)).toByteArray();
        const QImage image =
            Drawn(svg, QSize(32, 32), Qt::white).convertToFormat(QImage::Format_Grayscale8);
        for (auto other = grey.cbegin(); other != grey.cend(); ++other) {
            int different = 0;
            for (int y = 0; y < 32; ++y) {
                for (int x = 0; x < 32; ++x)
                    different += qAbs(qGray(image.pixel(x, y)) - qGray(other->pixel(x, y))) > 48;
            }
            QVERIFY2(different > 32 * 32 / 8,
                     qPrintable(QStringLiteral("%1 and %2").arg(name, other.key())));
        }
        grey[name] = image;
    }
}

void TestDrawings::thePointersHotSpotIsTheTipOfItsFinger()
{
    const QImage hand =
        Drawn(Read(DataPath(QStringLiteral("images/mano.svg"))).toByteArray(), QSize(32, 32));
    QVERIFY(hand.pixelColor(10, 2).alpha() > 200);
    for (int x = 0; x < 32; ++x)
        QVERIFY(hand.pixelColor(x, 0).alpha() < 60);
}

MORLENE_TEST(TestDrawings)
#include "test_drawings.moc"
