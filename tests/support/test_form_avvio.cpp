// The splash: what it shows, and the one way on.
#include "support/windows/form_avvio.h"

#include "core/shared_state.h"
#include "core/windows.h"
#include "language/language.h"
#include "support/application_folder.h"
#include "support/cls_resize.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QDir>
#include <QImage>
#include <QTest>
#include <QWidget>

#include <memory>

using namespace platform;

namespace {

class Menu : public Form {
public:
    Menu() : Form("FormMenu", 3000, 3000)
    {
        OnActivate = [] { host().Changed(QStringLiteral("FormMenu Activate")); };
    }
};

} // namespace

class TestFormAvvio : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;

    FormAvvio &Open()
    {
        auto *window = new FormAvvio;
        window->Show();
        return *window;
    }

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        QVERIFY(QDir().mkpath(m_folder->Path(QStringLiteral("immagini"))));
        for (const QString &name : {QStringLiteral("titolo.svg"), QStringLiteral("avanti.svg")})
            QFile::copy(QStringLiteral(SOURCE_DIR "/data/images/") + name,
                        m_folder->Path(QStringLiteral("immagini/") + name));
        AzzeraStatoCondiviso();
        RegistraFinestra(QStringLiteral("FormMenu"), []() -> Form * { return new Menu; });
    }
    void cleanup()
    {
        DropForms();
        m_folder.reset();
        m_host.reset();
    }

    void itOpensAsDesigned()
    {
        FormAvvio &window = Open();
        QCOMPARE(window.Label2(0).Caption(), QStringLiteral("MorleneKVT"));
        QCOMPARE(window.Label2(1).Caption(), QStringLiteral("02/10/2005"));
        for (const Label &label : window.Label2)
            QCOMPARE(label.Font().Name, QStringLiteral("Comic Sans MS"));
        QCOMPARE(window.Left(), 0.0);
        QCOMPARE(window.Top(), 0.0);
        QCOMPARE(window.Width(), 1366 * 15.0);
        QCOMPARE(window.Height(), 768 * 15.0);
        QVERIFY(Ridimensionatore->SourceForm() == &window);
        // Scaled with the window.
        QCOMPARE(window.Command1.Top(), 4440 * (window.ScaleHeight() / 5400));
    }

    void theLanguageIsLaidOverIt()
    {
        m_folder->WriteLanguage("[FormAvvio]\r\nFormAvvio.Caption=Bienvenue\r\n"
                                "Label2(0).Caption=Les maisons\r\n");
        LeggiLinguaCorrente();
        FormAvvio &window = Open();
        QCOMPARE(window.Caption(), QStringLiteral("Bienvenue"));
        QCOMPARE(window.Label2(0).Caption(), QStringLiteral("Les maisons"));
        QCOMPARE(window.Label2(1).Caption(), QStringLiteral("02/10/2005"));
    }

    void theBackgroundRunsFromWhiteToBlue()
    {
        FormAvvio &window = Open();
        const QImage image = window.Client()->grab().toImage();
        const int x = 5; // left of all controls
        const int last = image.height() - 1;
        QCOMPARE(image.pixelColor(x, 0).blue(), 255);
        QVERIFY(image.pixelColor(x, 0).red() >= 253);
        QCOMPARE(image.pixelColor(x, last), QColor(0, 0, 255));
        int before = 255;
        for (int y = 0; y <= last; ++y) {
            const QColor colour = image.pixelColor(x, y);
            QCOMPARE(colour.blue(), 255);
            QCOMPARE(colour.red(), colour.green());
            QVERIFY(colour.red() <= before);
            QVERIFY(before - colour.red() <= 2);
            before = colour.red();
        }
        QVERIFY(qAbs(image.pixelColor(x, image.height() / 2).red() - 127) <= 2);
    }

    void theWayOnIsItsButtonByMouseSpaceOrEnter_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("mouse") << 0;
        QTest::newRow("space") << int(Qt::Key_Space);
        QTest::newRow("enter") << int(Qt::Key_Return);
        QTest::newRow("keypad") << int(Qt::Key_Enter);
    }
    void theWayOnIsItsButtonByMouseSpaceOrEnter()
    {
        QFETCH(int, key);
        FormAvvio &window = Open();
        QVERIFY(QTest::qWaitForWindowActive(window.Window()));
        m_host->TakeEvents();
        // Where the keyboard is, without anybody asking for it.
        QVERIFY(window.Command1.HasFocus());
        if (key == 0)
            QTest::mouseClick(window.Command1.Widget(), Qt::LeftButton);
        else
            QTest::keyClick(window.Window()->focusWidget(), static_cast<Qt::Key>(key));
        QCOMPARE(m_host->Events, QStringList(QStringLiteral("FormMenu Activate")));
        QVERIFY(Form::Find(QStringLiteral("FormAvvio")) == nullptr);
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) != nullptr);
        QVERIFY(!m_host->Ended);
    }

    void itStaysUntilThen()
    {
        FormAvvio &window = Open();
        m_host->Advance(3600 * 1000);
        QTest::keyClick(window.Window(), Qt::Key_A);
        QTest::mouseClick(window.Client(), Qt::LeftButton, {}, QPoint(3, 3));
        QVERIFY(Form::Find(QStringLiteral("FormAvvio")) == &window);
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) == nullptr);
    }
};

MORLENE_TEST(TestFormAvvio)
#include "test_form_avvio.moc"
