// A language file laid over a window: which keys, in which order, and what stays as designed.
#include "language/language.h"

#include "core/shared_state.h"
#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "support/application_folder.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QCoreApplication>
#include <QTest>

#include <functional>
#include <memory>

using namespace platform;

namespace {

// Keeps what is set, in order. With `tabs` below 0 it has none.
class Recorder : public Control {
public:
    Recorder(const ControlId &id, int tabs = -1) : Control(id), m_tabs(tabs) {}

    QString Caption() const override { return m_caption; }
    void SetCaption(const QString &text) override
    {
        m_caption = text;
        Set << QStringLiteral("Caption=") + text;
        if (OnCaption)
            OnCaption();
    }
    void SetToolTipText(const QString &text) override
    {
        Set << QStringLiteral("ToolTipText=") + text;
    }
    int Tabs() const override { return m_tabs < 0 ? Control::Tabs() : m_tabs; }
    void SetTabCaption(int n, const QString &text) override
    {
        Set << QStringLiteral("TabCaption(%1)=%2").arg(n).arg(text);
    }

    QStringList Set;
    std::function<void()> OnCaption;

private:
    int m_tabs;
    QString m_caption = QStringLiteral("disegno");
};

// A control without any of the properties, such as a timer.
class Bare : public Control {
public:
    using Control::Control;
};

class Window : public Form {
public:
    explicit Window(const QString &title = QStringLiteral("titolo"))
        : Form("Finestra", 3000, 3000), Label1({*this, "Label1"}), Timer1({*this, "Timer1"}),
          Command1({*this, "Command1", 3}), Linguette({*this, "Linguette"}, 2),
          Schede({*this, "Schede"}, -1)
    {
        SetCaption(title);
        SetTag(QStringLiteral("contrassegno"));
        Label1.SetTag(QStringLiteral("@L"));
    }
    Recorder Label1;
    Bare Timer1;
    Recorder Command1;
    Recorder Linguette;
    Recorder Schede;
};

QStringList List(std::initializer_list<const char *> texts)
{
    QStringList list;
    for (const char *text : texts)
        list << QString::fromLatin1(text);
    return list;
}

} // namespace

class TestOverlay : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;

    void Speak(const QByteArray &content)
    {
        m_folder->WriteLanguage(content);
        LeggiLinguaCorrente();
    }

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        AzzeraStatoCondiviso();
    }
    void cleanup()
    {
        m_folder.reset();
        m_host.reset();
    }

    void everyKeyOfTheSectionFindsItsPlace()
    {
        Speak("[Finestra]\r\nFinestra.Caption=Titolo\r\nFinestra.Tag=T\r\n"
              "Finestra.ToolTipText=nulla\r\n"
              "Label1.Caption=Etichetta\r\nLabel1.ToolTipText=Aiuto\r\nLabel1.Tag=@W\r\n"
              "Timer1.Caption=nulla\r\nTimer1.ToolTipText=nulla\r\nTimer1.Tag=orologio\r\n"
              "Command1(3).Caption=Tre\r\nCommand1(3).ToolTipText=Aiuto 3\r\n"
              "Command1(3).Tag=@H\r\nCommand1.Caption=senza indice\r\n"
              "Linguette.TabCaption(1)=Prima\r\nLinguette.TabCaption(2)=Seconda\r\n"
              "Linguette.TabCaption(3)=Terza\r\nSchede.TabCaption(1)=Prima\r\n"
              "[Altra]\r\nSchede.Caption=Altra\r\n");
        Window window;
        MLSCaricaForm(window);
        QCOMPARE(window.Caption(), QStringLiteral("Titolo"));
        QCOMPARE(window.Tag(), QStringLiteral("T"));
        QCOMPARE(window.Label1.Set, List({"Caption=Etichetta", "ToolTipText=Aiuto"}));
        QCOMPARE(window.Label1.Tag(), QStringLiteral("@W"));
        QCOMPARE(window.Timer1.Tag(), QStringLiteral("orologio"));
        QCOMPARE(window.Command1.Set, List({"Caption=Tre", "ToolTipText=Aiuto 3"}));
        QCOMPARE(window.Command1.Tag(), QStringLiteral("@H"));
        QCOMPARE(window.Linguette.Set, List({"TabCaption(1)=Prima", "TabCaption(2)=Seconda"}));
        QCOMPARE(window.Schede.Set, QStringList());
    }

    void aMissingKeyEmptiesTitleTagAndTabsAndKeepsTheControls()
    {
        Speak("[Finestra]\r\nx=y\r\n");
        Window window;
        MLSCaricaForm(window);
        QCOMPARE(window.Caption(), QString());
        QCOMPARE(window.Tag(), QString());
        QCOMPARE(window.Label1.Set, QStringList());
        QCOMPARE(window.Label1.Tag(), QStringLiteral("@L"));
        QCOMPARE(window.Linguette.Set, List({"TabCaption(1)=", "TabCaption(2)="}));
    }

    void aWindowWithoutATitleGetsNone()
    {
        Speak("[Finestra]\r\nFinestra.Caption=Titolo\r\n");
        Window window{QString()};
        MLSCaricaForm(window);
        QCOMPARE(window.Caption(), QString());
    }

    void withoutALanguageFileAllStaysAsDesigned()
    {
        LinguaCorrente = QStringLiteral("manca");
        Window window;
        MLSCaricaForm(window);
        QCOMPARE(window.Caption(), QStringLiteral("titolo"));
        QCOMPARE(window.Tag(), QStringLiteral("contrassegno"));
        QCOMPARE(window.Label1.Set, QStringList());
        QCOMPARE(window.Label1.Tag(), QStringLiteral("@L"));
        QCOMPARE(window.Linguette.Set, QStringList());
    }

    void aLargeFileGivesBothWindowsTheTextOfTheFirstSection()
    {
        QByteArray content = "[Altra]\r\nLabel1.Caption=\"prima\"\r\n"
                             "[Finestra]\r\nLabel1.Caption=\"seconda\"\r\n";
        while (content.size() <= 64000)
            content += "; " + QByteArray(60, '-') + "\r\n";
        Speak(content);
        Window window;
        MLSCaricaForm(window);
        QCOMPARE(window.Label1.Set, List({"Caption=prima"}));
    }

    void pendingEventsPassAtEachControl()
    {
        Speak("[Finestra]\r\nLabel1.Caption=uno\r\nCommand1(3).Caption=due\r\n");
        Window window;
        QStringList before;
        // Posted while one control is at its turn, it has passed when the next one is.
        window.Label1.OnCaption = [&] {
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [&] {
                    before = window.Command1.Set;
                    before << QStringLiteral("passato");
                },
                Qt::QueuedConnection);
        };
        MLSCaricaForm(window);
        QCOMPARE(before, List({"passato"}));
    }

    void aWindowUnloadedByAnEventIsLeftAlone()
    {
        Speak("[Finestra]\r\nLabel1.Caption=uno\r\nCommand1(3).Caption=due\r\n");
        auto *window = new Window;
        auto *other = new Window;
        other->Show();
        window->Label1.OnCaption = [window] {
            QMetaObject::invokeMethod(
                QCoreApplication::instance(), [window] { window->Drop(); }, Qt::QueuedConnection);
        };
        MLSCaricaForm(*window);
        QVERIFY(window->Unloaded());
        QCOMPARE(window->Command1.Set, QStringList());
        DropForms();
    }

    void theOverlayDoesNotChooseALanguage()
    {
        m_folder->WriteLanguage("[Finestra]\r\nLabel1.Caption=uno\r\n");
        Window window;
        MLSCaricaForm(window);
        QCOMPARE(LinguaCorrente, QString());
        QCOMPARE(window.Label1.Set, QStringList());
    }
};

MORLENE_TEST(TestOverlay)
#include "test_overlay.moc"
