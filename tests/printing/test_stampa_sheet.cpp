// The page set-up dialog's sheet in its true shape, the image at its true place on it, and the
// warning of a print that leaves it.
#include "printing/stampa_desk.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#ifndef Q_OS_WIN
#include <sys/inotify.h>
#include <unistd.h>
#endif

using namespace platform;

namespace {

#ifndef Q_OS_WIN
// A variable of the environment, for a while.
class ScopedVariable {
public:
    ScopedVariable(const char *name, const QByteArray &value)
        : m_name(name), m_set(qEnvironmentVariableIsSet(name)), m_former(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~ScopedVariable()
    {
        if (m_set)
            qputenv(m_name, m_former);
        else
            qunsetenv(m_name);
    }
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;

private:
    const char *m_name;
    bool m_set;
    QByteArray m_former;
};

// Names of the files that are made in a folder, also of those that are gone again.
class NewFiles {
public:
    explicit NewFiles(const QString &folder) : m_watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        inotify_add_watch(m_watch, folder.toLocal8Bit().constData(), IN_CREATE | IN_MOVED_TO);
    }
    ~NewFiles() { close(m_watch); }
    NewFiles(const NewFiles &) = delete;
    NewFiles &operator=(const NewFiles &) = delete;

    QStringList Take() const
    {
        QStringList names;
        alignas(inotify_event) char buffer[4096];
        for (ssize_t read = 0; (read = ::read(m_watch, buffer, sizeof buffer)) > 0;)
            for (ssize_t at = 0; at < read;) {
                const auto *event = reinterpret_cast<const inotify_event *>(buffer + at);
                names << QString::fromLocal8Bit(event->name);
                at += static_cast<ssize_t>(sizeof *event + event->len);
            }
        return names;
    }

private:
    int m_watch;
};
#endif

} // namespace

class TestStampaSheet : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePreviewKeepsTheShapeOfTheSheet_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("w");
        QTest::addColumn<int>("h");
        QTest::newRow("upright") << 200 << 280 << 1361 << 1905;
        QTest::newRow("across") << 280 << 200 << 1905 << 1361;
        QTest::newRow("square") << 150 << 150 << 1905 << 1905;
        QTest::newRow("long") << 100 << 1000 << 190 << 1905;
    }

    void thePreviewKeepsTheShapeOfTheSheet()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, w);
        QFETCH(int, h);
        Desk desk;
        desk.Host.Printer.Sheets[QStringLiteral("Prima")] = {width, height, width * 10,
                                                             height * 10};
        desk.Open([&](FrmStampa &dialog) {
            QCOMPARE(PlaceOf(dialog.shpFoglio), (QList<int>{1560, 240, w + 120, h + 120}));
            QCOMPARE(PlaceOf(dialog.shpBordo), (QList<int>{1605, 285, w + 30, h + 30}));
            QCOMPARE(PlaceOf(dialog.picPreview), (QList<int>{1620, 300, w, h}));
            // The sheet is white up to its edge.
            const QImage sheet = dialog.shpFoglio.Widget()->grab().toImage();
            QCOMPARE(sheet.pixelColor(2, sheet.height() / 2), QColor(Qt::white));
        });
    }

    // 127 pixels for 200 mm upright: the surface is 91 by 127; 100 mm are 46 and 45.
    void theImageLiesAtItsTruePlace()
    {
        Desk desk;
        desk.Owner->SetBackColor(Rgb(0xFF, 0, 0));
        RichiestaStampa request = desk.Request();
        request.X = 50;
        request.Y = 100;
        desk.Open(request, [&](FrmStampa &dialog) {
            QCOMPARE(dialog.picPreview.ScaleHeight(), 127);
            const QImage image = Preview(dialog);
            const int left = qRound(image.width() / 200.0 * 50);
            const int top = qRound(image.height() / 280.0 * 100);
            const int right = left + qRound(image.width() / 200.0 * 100) - 1;
            const int bottom = top + qRound(image.height() / 280.0 * 100) - 1;
            QVERIFY(IsPaper(image, left - 1, top + 5));
            QVERIFY(IsPaper(image, left + 5, top - 1));
            QVERIFY(IsPaper(image, right + 1, bottom));
            QVERIFY(IsPaper(image, right, bottom + 1));
            QCOMPARE(image.pixelColor(right, bottom), QColor(0xFF, 0, 0));
            QCOMPARE(image.pixelColor(right, top), QColor(0xFF, 0, 0));
        });
    }

    void aPictureIsFixedAndLaidOnTheSheetToo()
    {
#ifdef Q_OS_WIN
        QSKIP("Nothing is told of files that are gone again there");
#else
        Desk desk;
        desk.Picture->SetBackColor(Rgb(0, 0x80, 0));
        RichiestaStampa request = desk.Request();
        request.Oggetto = static_cast<Control *>(desk.Picture.get());
        request.Titolo.reset();
        const QTemporaryDir folder;
        const ScopedVariable temporary("TMPDIR", folder.path().toLocal8Bit());
        const NewFiles files(folder.path());
        desk.Open(request, [&](FrmStampa &dialog) {
            QVERIFY(!desk.Picture->LoadedPicture().isNull());
            QCOMPARE(Stampa.TitoloStampa, QStringLiteral("Picture1"));
            const QImage image = Preview(dialog);
            QCOMPARE(image.pixelColor(20, 20), QColor(0, 0x80, 0));
            QVERIFY(IsPaper(image, 1, 1));
            dialog.cmdStampa.OnClick();
        });
        const QStringList made = files.Take();
        QCOMPARE(made.size(), qsizetype{1});
        QVERIFY2(made.first().startsWith(QStringLiteral("Fra")), qPrintable(made.first()));
        QVERIFY(QDir(folder.path()).isEmpty());
        QCOMPARE(desk.Host.Printer.Documents.size(), qsizetype{1});
        QVERIFY(desk.Host.Printer.Documents.first().Ended);
#endif
    }

    void offTheSheetIsSeenAtOnceAndBlinks()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            Type(dialog.txtPrX, QStringLiteral("101"));
            QVERIFY(dialog.lblFuoriFoglio.Visible());
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), Color{255});
            desk.Host.Advance(499);
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), Color{255});
            desk.Host.Advance(1);
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), SystemButtonFace);
            desk.Host.Advance(500);
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), Color{255});
            dialog.lblFuoriFoglio.SetBackColor(7);
            desk.Host.Advance(500);
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), Color{7});
            Type(dialog.txtPrX, QStringLiteral("100")); // the edge itself is on the sheet
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            QVERIFY(!dialog.Timer1.Enabled());
        });
    }

    void everySideCanBeLeft()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            Type(dialog.txtPrY, QStringLiteral("181"));
            QVERIFY(dialog.lblFuoriFoglio.Visible());
            Type(dialog.txtPrY, QStringLiteral("180"));
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            Type(dialog.txtPrY, QStringLiteral("181"));
            dialog.cmdOrigine.OnClick();
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            QCOMPARE(dialog.txtPrX.Text(), QStringLiteral("0"));
            QCOMPARE(dialog.txtPrY.Text(), QStringLiteral("0"));
            dialog.updPrX.Down();
            QCOMPARE(Stampa.MargineX, -1);
            QVERIFY(dialog.lblFuoriFoglio.Visible());
            dialog.updPrX.Up();
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            dialog.updPrY.Down();
            QVERIFY(dialog.lblFuoriFoglio.Visible());
        });
    }

    void aSizeOfOneIsNotDrawn()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            const QImage before = Preview(dialog);
            Type(dialog.txtPrW, QStringLiteral("1"));
            QCOMPARE(Stampa.StampaW, 1);
            QCOMPARE(Preview(dialog), before);
            Type(dialog.txtPrW, QStringLiteral("2"));
            QVERIFY(Preview(dialog) != before);
        });
    }

    void aHeightOfOneIsNotDrawnEither()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            const QImage before = Preview(dialog);
            Type(dialog.txtPrH, QStringLiteral("1"));
            QCOMPARE(Stampa.StampaH, 1);
            QCOMPARE(Preview(dialog), before);
            Type(dialog.txtPrH, QStringLiteral("30"));
            QVERIFY(Preview(dialog) != before);
        });
    }
};

MORLENE_TEST(TestStampaSheet)
#include "test_stampa_sheet.moc"
