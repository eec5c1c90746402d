// The menu: its items, the light of the pointer, languages, and the ways out of it.
#include "menu/menu_player.h"

#include "exercises/form_es1.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/machine/application.h"
#include "support/application_folder.h"
#include "support/cls_resize.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QTest>

#include <array>
#include <utility>

using namespace platform;

namespace {

// In the place of the window that the menu opens: tells what is there when it comes.
class Next : public Form {
public:
    explicit Next(const char *name) : Form(name, 3000, 3000)
    {
        OnActivate = [] {
            host().Changed(Find(QStringLiteral("FormMenu")) != nullptr
                               ? QStringLiteral("beside the menu")
                               : QStringLiteral("without the menu"));
            host().Changed(QStringLiteral("title ") + EserciziEseguiti(1, 0));
        };
    }
};

} // namespace

class TestFormMenu : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theMenuClearsTheScoreAndFillsTheScreen()
    {
        MenuPlayer player;
        Esatti = 4;
        Errati = 4;
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(Esatti, 0);
        QCOMPARE(Errati, int16_t{0});
        QCOMPARE(menu.Left(), 0.0);
        QCOMPARE(menu.Top(), 0.0);
        QCOMPARE(menu.Width(), ScreenWidth());
        QCOMPARE(menu.Height(), ScreenHeight());
        QCOMPARE(menu.BackColor(), Color{0x00C0E0FF});
        QVERIFY(!menu.Timer1.Enabled());
    }

    void captionsAreDesignedInBoldArial()
    {
        MenuPlayer player;
        const FormMenu designed;
        for (const Label &item : designed.Command1)
            QCOMPARE(item.Font(), (Font{QStringLiteral("arial"), 14.25, true}));
    }

    void captionsAreComposedAndWhollySmallUnlessTheyAreCapitals()
    {
        const std::array<const char *, 9> composed = {
            "\nvero o falso",       "\nuguale - diverso",  "uguali\n-\n1°",
            "uguali\n-\n2°",        "\ncolora la morlena", "\ninsiemi",
            "\ntrova gli\nintrusi", "\nindovina chi?",     "\nesci"};
        MenuPlayer player;
        for (const char *lettering : {"minuscolo", "maiuscolo", "corsivo"}) {
            TipoCarattere = QString::fromLatin1(lettering);
            const FormMenu &menu = player.OpenMenu();
            for (const Label &item : menu.Command1) {
                const QString small =
                    QString::fromUtf8(composed.at(static_cast<size_t>(item.Index())));
                QCOMPARE(item.Caption(),
                         TipoCarattere == QStringLiteral("maiuscolo") ? small.toUpper() : small);
            }
            DropForms();
        }
    }

    void theSizeOfTheCaptionsFollowsTheWidthOfAnItem()
    {
        MenuPlayer player;
        double last = 0;
        for (const ScreenSize size :
             {ScreenSize{1024, 768}, {1366, 768}, {1920, 1080}, {3840, 2160}}) {
            player.Host.ScreenSizeNow = size;
            FormMenu &menu = player.OpenMenu();
            const double points = menu.Command1(0).Font().Size;
            QVERIFY(points >= 14);
            QVERIFY(points >= last);
            QCOMPARE(menu.LabelDimensionaFont.Caption(), QStringLiteral("a DIFFERENZE  "));
            for (const Label &item : menu.Command1)
                QCOMPARE(item.Font().Size, points);
            QVERIFY(menu.LabelDimensionaFont.Width() >= menu.Command1(0).Width());
            QCOMPARE(menu.Combo1.Font().Size, std::max(14.0, points - 10));
            // The first size that is wide enough.
            menu.LabelDimensionaFont.SetFontSize(points - 1);
            QVERIFY(points == 14 || menu.LabelDimensionaFont.Width() < menu.Command1(0).Width());
            last = points;
            DropForms();
        }
        QVERIFY(last > 20);
    }

    void theSizeOfTheSentencesHasNoInfluenceOnTheCaptions()
    {
        MenuPlayer player;
        QSet<double> sizes;
        for (const int points : {8, 24, 72}) {
            DimensioneFont = Integer16(points);
            const FormMenu &menu = player.OpenMenu();
            sizes << menu.Command1(0).Font().Size;
            DropForms();
        }
        QCOMPARE(sizes.size(), 1);
        // Neither the smallest nor the largest of them.
        QVERIFY(*sizes.begin() > 14);
        QVERIFY(*sizes.begin() < 72);
    }

    void theTitlesOfOneMenuAreDrawnInOneSize_data()
    {
        QTest::addColumn<QString>("lettering");
        for (const char *lettering : {"minuscolo", "maiuscolo", "corsivo"})
            QTest::newRow(lettering) << QString::fromLatin1(lettering);
    }

    void theTitlesOfOneMenuAreDrawnInOneSize()
    {
        QFETCH(QString, lettering);
        MenuPlayer player;
        TipoCarattere = lettering;
        const FormMenu &menu = player.OpenMenu();
        QSet<double> sizes;
        for (const Label &title : menu.Command1) {
            QVERIFY(title.Drawn().Whole);
            sizes << title.Drawn().Points;
        }
        QCOMPARE(sizes.size(), 1);
    }

    void aVeryNarrowItemKeepsTheSmallestSize()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        QVERIFY(menu.Command1(0).Font().Size > 14);
        for (const double width : {100.0, 15.0, 0.0}) {
            menu.Command1(0).SetWidth(width);
            menu.ImpostaUtente();
            for (const Label &item : menu.Command1)
                QCOMPARE(item.Font().Size, 14.0);
            QCOMPARE(menu.Combo1.Font().Size, 14.0);
        }
    }

    void aClickStartsTheExerciseWithItsTitleInTheLog_data()
    {
        QTest::addColumn<QString>("window");
        QTest::addColumn<QString>("title");
        // In the order of the items.
        const std::array<std::pair<const char *, const char *>, 8> exercises = {
            {{"FormEs1", "Vero o falso"},
             {"FormEs2", "Uguale - diverso"},
             {"FormEs8", "Uguali - 1°"},
             {"FormEs3", "Uguali - 2°"},
             {"FormEs4", "Colora la morlena"},
             {"FormEs5", "Insiemi"},
             {"FormEs6", "Trova gli intrusi"},
             {"FormEs7", "Indovina chi?"}}};
        int item = 0;
        for (const auto &[window, title] : exercises)
            QTest::addRow("%d", item++) << QString::fromLatin1(window) << QString::fromUtf8(title);
    }

    void aClickStartsTheExerciseWithItsTitleInTheLog()
    {
        QFETCH(QString, window);
        QFETCH(QString, title);
        const int item = QByteArray(QTest::currentDataTag()).toInt();
        for (const bool picture : {false, true}) {
            MenuPlayer player;
            player.Host.Seed(1);
            FormMenu &menu = player.OpenMenu();
            if (picture)
                ClickOn(menu.Image1(item));
            else
                ClickOn(menu.Command1(item));
            QCOMPARE(NumeroEserciziEseguiti, int16_t{1});
            QCOMPARE(EserciziEseguiti(1, 0), title);
            QVERIFY(Form::Find(window) != nullptr);
            QVERIFY(Form::Find(QStringLiteral("FormMenu")) == nullptr);
            QVERIFY(!player.Host.Ended);
        }
    }

    void theDocumentationIsOpenedAndTheMenuStays()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        QVERIFY(menu.mnuDocum.Enabled());
        menu.mnuDocum.OnClick();
        QCOMPARE(player.Host.OpenedDocuments,
                 QStringList{player.Host.Application + QStringLiteral("morlenekvt.pdf")});
        QCOMPARE(Form::Find(QStringLiteral("FormMenu")), &menu);
    }

    void aDocumentThatCannotBeOpenedIsNoMatterAndTheMenuStays()
    {
        MenuPlayer player;
        player.Host.DocumentError = FileNotFound;
        FormMenu &menu = player.OpenMenu();
        ClickInMenuBar(menu, QStringLiteral("mnuDocum"));
        // No box, which the host would not have foreseen.
        QCOMPARE(player.Host.FatalNumber, 0);
        QCOMPARE(Form::Find(QStringLiteral("FormMenu")), &menu);
    }

    void anEntryOfTheMenuBarOpensItsWindowAndTheMenuGoes_data()
    {
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("window");
        QTest::newRow("configuration") << "mnuConfigura"
                                       << "FormConfigura";
        QTest::newRow("exercises done") << "mnuEserciziEseguiti"
                                        << "FormEserciziEseguiti";
        QTest::newRow("about") << "mnuAbout"
                               << "FormInfo";
    }

    void anEntryOfTheMenuBarOpensItsWindowAndTheMenuGoes()
    {
        QFETCH(QString, entry);
        QFETCH(QString, window);
        // The menu bar is the adult's, in every mode.
        for (const int mode : {0, 1, 2, 3}) {
            MenuPlayer player;
            SalvaUtente = true;
            ModoInput = Integer16(mode);
            FormMenu &menu = player.OpenMenu();
            ClickInMenuBar(menu, entry);
            QVERIFY(Form::Find(window) != nullptr);
            QVERIFY(Form::Find(QStringLiteral("FormMenu")) == nullptr);
            QVERIFY(!player.Host.Ended);
            // Only the configuration takes long.
            const auto hourglass =
                player.Host.TakeEvents().indexOf(QStringLiteral("FormMenu.MousePointer=11"));
            QCOMPARE(hourglass, entry == QStringLiteral("mnuConfigura") ? 0 : -1);
        }
    }

    void theMenuGoesWhenTheNextWindowHasCome_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<QString>("title");
        QTest::newRow("item") << QString() << QStringLiteral("Vero o falso");
        for (const char *entry : {"mnuConfigura", "mnuEserciziEseguiti", "mnuAbout"})
            QTest::newRow(entry) << QString::fromLatin1(entry) << QString();
    }

    void theMenuGoesWhenTheNextWindowHasCome()
    {
        QFETCH(QString, way);
        QFETCH(QString, title);
        MenuPlayer player;
        SalvaUtente = true;
        RegistraFinestra(QStringLiteral("FormEs1"), []() -> Form * { return new Next("FormEs1"); });
        RegistraFinestra(QStringLiteral("FormConfigura"),
                         []() -> Form * { return new Next("FormConfigura"); });
        RegistraFinestra(QStringLiteral("FormEserciziEseguiti"),
                         []() -> Form * { return new Next("FormEserciziEseguiti"); });
        RegistraFinestra(QStringLiteral("FormInfo"),
                         []() -> Form * { return new Next("FormInfo"); });
        FormMenu &menu = player.OpenMenu();
        if (way.isEmpty())
            ClickOn(menu.Command1(0));
        else
            ClickInMenuBar(menu, way);
        const QStringList events = player.Host.TakeEvents();
        QCOMPARE(events.mid(events.size() - 2), QStringList({QStringLiteral("beside the menu"),
                                                             QStringLiteral("title ") + title}));
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) == nullptr);
    }

    void withoutALogThereIsNoEntryForIt()
    {
        MenuPlayer player;
        SalvaUtente = false;
        FormMenu &menu = player.OpenMenu();
        QStringList shown;
        for (const QAction *entry : menu.MenuBar()->actions())
            if (entry->isVisible())
                shown << entry->objectName();
        QCOMPARE(shown, QStringList({QStringLiteral("mnuConfigura"), QStringLiteral("mnuInfo"),
                                     QStringLiteral("mnuLanguages")}));
    }

    void oneRowStaysEmptyBetweenTwoExercises()
    {
        MenuPlayer player;
        player.Host.Seed(1);
        player.OpenMenu().Command1.OnClick(0);
        dynamic_cast<FormEs1 &>(*Form::Find(QStringLiteral("FormEs1"))).mnuEsci.OnClick();
        dynamic_cast<FormMenu &>(*Form::Find(QStringLiteral("FormMenu"))).Command1.OnClick(0);
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
        QCOMPARE(EserciziEseguiti(1, 0), QStringLiteral("Vero o falso"));
        QCOMPARE(EserciziEseguiti(1, 1), QStringLiteral("1"));
        QCOMPARE(EserciziEseguiti(2, 0), QString());
        QCOMPARE(EserciziEseguiti(3, 0), QStringLiteral("Vero o falso"));
    }

    void theExitItemSavesAndEnds()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        QVERIFY(Ridimensionatore != nullptr);
        ClickOn(menu.Command1(8));
        QVERIFY(player.Host.Ended);
        QCOMPARE(player.Host.DriveFile(Settings + QStringLiteral("_predefinito.INI")).count('\n'),
                 43);
        QVERIFY(Ridimensionatore == nullptr);
    }

    void aSaveThatFailsAtTheEndIsTold()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        QDir().mkpath(player.Host.Drive.filePath(Settings + QStringLiteral("_predefinito.INI")));
        Guarded([&] { menu.Command1.OnClick(8); });
        QCOMPARE(player.Host.FatalNumber, static_cast<int>(PathFileAccess));
        QVERIFY2(player.Host.FatalText.contains(QStringLiteral("_predefinito.INI")),
                 qPrintable(player.Host.FatalText));
        // Not as if all were well.
        QVERIFY(!player.Host.Ended);
    }

    void theWindowsOwnEndSavesNothing()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        menu.Window()->window()->close();
        QVERIFY(player.Host.Ended);
        QVERIFY(!player.Host.DriveHas(Settings + QStringLiteral("_predefinito.INI")));
    }

    void theFiveHundredAndFirstStartIsFatal()
    {
        MenuPlayer player;
        player.Host.Seed(1);
        FormMenu &menu = player.OpenMenu();
        NumeroEserciziEseguiti = 499;
        ClickOn(menu.Command1(0));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{500});
        QCOMPARE(player.Host.FatalNumber, 0);
        DropForms();
        FormMenu &again = player.OpenMenu();
        // As an event does, but not through the toolkit, which loses a little when it is thrown
        // through; the program ends then.
        Guarded([&] { again.Command1.OnClick(0); });
        QCOMPARE(player.Host.FatalNumber, static_cast<int>(SubscriptOutOfRange));
    }

    void theLightFollowsThePointer()
    {
        MenuPlayer player;
        FormMenu &menu = player.OpenMenu();
        MoveOver(menu.Image1(8));
        QCOMPARE(Lit(menu), QList<int>{8});
        MoveOver(menu.Command1(0));
        QCOMPARE(Lit(menu), QList<int>{0});
        player.Host.TakeEvents();
        menu.Command1.OnMouseMove(0);
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        menu.OnMouseMove();
        QCOMPARE(Lit(menu), QList<int>());
    }

    void anErrorUnderThePointerIsLeftQuietly()
    {
        MenuPlayer player;
        const FormMenu &menu = player.OpenMenu();
        // No colour has a number that large.
        ColorePulsantiSelezionati = 1e12;
        MoveOver(menu.Image1(1));
        QCOMPARE(player.Host.FatalNumber, 0);
    }

    // --- Languages ---

    void aLanguageChosenInTheMenuComesAtOnceButForWhatWasComposed()
    {
        MenuPlayer player;
        QTemporaryDir application;
        QDir().mkpath(application.filePath(QStringLiteral("lngmorlene")));
        const auto write = [&](const QString &name, const QByteArray &content) {
            QFile file(application.filePath(QStringLiteral("lngmorlene/") + name));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        };
        write(QStringLiteral("uno.lng"), "[Strings]\r\n0004=Giusti\r\n[FormMenu]\r\n"
                                         "FormMenu.Caption=Uno\r\nCommand1(0).Caption=Alfa\r\n");
        write(QStringLiteral("due.lng"), "[FormMenu]\r\nCommand1(0).Caption=Beta\r\n"
                                         "mnuInfo.Caption=Aiuto\r\n");
        write(QStringLiteral("LangSetting.ini"), "[Language]\r\nCurrentLanguage=uno\r\n");
        player.Host.Application = application.path() + QLatin1Char('/');
        LinguaCorrente.clear();
        FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.mnuLanguage.Count(), 2);
        QCOMPARE(menu.mnuLanguage(0).Caption(), QStringLiteral("due"));
        QVERIFY(!menu.mnuLanguage(0).Checked());
        QVERIFY(menu.mnuLanguage(1).Checked());
        QCOMPARE(menu.Command1(0).Caption(), QStringLiteral("\nalfa"));
        menu.mnuLanguage.OnClick(0);
        QCOMPARE(menu.Command1(0).Caption(), QStringLiteral("Beta"));
        QCOMPARE(menu.mnuInfo.Caption(), QStringLiteral("Aiuto"));
        QCOMPARE(menu.Caption(), QString());
        QVERIFY(menu.mnuLanguage(0).Checked());
        QVERIFY(!menu.mnuLanguage(1).Checked());
        QCOMPARE(LinguaCorrente, QStringLiteral("due"));
        QFile setting(application.filePath(QStringLiteral("lngmorlene/LangSetting.ini")));
        QVERIFY(setting.open(QIODevice::ReadOnly));
        QVERIFY(setting.readAll().contains("CurrentLanguage=due"));
        QCOMPARE(EtichettaEsatti, QStringLiteral(" Esatti"));
    }

    void theComposedCaptionsHaveWordsOfTheirOwn()
    {
        MenuPlayer player;
        const ApplicationFolder folder(player.Host);
        folder.WriteLanguage("[Strings]\r\n0059=a\r\n0060=b\r\n0061=c\r\n0062=d\r\n"
                             "0063=e\r\n0064=f\r\n");
        LinguaCorrente.clear();
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.Command1(2).Caption(), QStringLiteral("a\nb\n1°"));
        QCOMPARE(menu.Command1(3).Caption(), QStringLiteral("c\nd\n2°"));
        QCOMPARE(menu.Command1(6).Caption(), QStringLiteral("\ne\nf"));
    }

    void withoutAnyLanguageTheMenuSaysSoAndGoesOn()
    {
        MenuPlayer player;
        QTemporaryDir application;
        player.Host.Application = application.path() + QLatin1Char('/');
        player.Host.ExpectBox(QStringLiteral("Non è presente alcun file di linguaggio!"));
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(menu.mnuLanguage.Count(), 1);
        QVERIFY(!menu.mnuLanguage(0).Checked());
        QCOMPARE(menu.Command1(1).Caption(), QStringLiteral("\nuguale - diverso"));
    }
};

MORLENE_TEST(TestFormMenu)
#include "test_form_menu.moc"
