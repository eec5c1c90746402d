// The language menu: what is ticked, what a choice changes at once, and what is found again at the
// next start.
#include "exercises/form_es1.h"
#include "language/language.h"
#include "menu/form_menu.h"
#include "support/application_folder.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

using namespace platform;

namespace {

class LanguagePlayer : public Player {
public:
    LanguagePlayer() : Folder(Host)
    {
        Folder.WriteLanguage("[Strings]\r\n0004=\"Giusti\"\r\n0007=\"Il tetto si mostra\"\r\n"
                             "[FormEs1]\r\nFormEs1.Caption=\"Uno\"\r\n");
        LinguaCorrente.clear();
    }

    FormMenu &OpenMenu()
    {
        auto *menu = new FormMenu;
        menu->Show();
        QCoreApplication::processEvents();
        return *menu;
    }

    ApplicationFolder Folder;
};

// The menu "Lingua" as it is seen.
QList<QAction *> Items(FormMenu &menu)
{
    for (const QAction *top : menu.MenuBar()->actions())
        if (top->text() == menu.mnuLanguages.Caption() && top->menu() != nullptr)
            return top->menu()->actions();
    return {};
}

QStringList Ticked(FormMenu &menu)
{
    QStringList ticked;
    for (const QAction *item : Items(menu))
        if (item->isChecked())
            ticked << item->text();
    return ticked;
}

void Choose(FormMenu &menu, const QString &language)
{
    for (QAction *item : Items(menu))
        if (item->text() == language) {
            item->trigger();
            return;
        }
    QTest::qFail(qPrintable(language), __FILE__, __LINE__);
}

} // namespace

class TestLanguages : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLanguageOfAnyNameIsFoundAgainAtTheNextStart_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"english", "Русский", " davanti", "dietro ", "日本語", "français"})
            QTest::newRow(name) << QString::fromUtf8(name);
    }
    void aLanguageOfAnyNameIsFoundAgainAtTheNextStart()
    {
        QFETCH(QString, name);
        LanguagePlayer player;
        player.Folder.Write(QStringLiteral("lngmorlene/") + name + QStringLiteral(".lng"),
                            "[Strings]\r\n0004=\"scelta\"\r\n");
        FormMenu &menu = player.OpenMenu();
        QCOMPARE(Ticked(menu), QStringList(QStringLiteral("prova")));
        Choose(menu, name);
        QCOMPARE(Ticked(menu), QStringList(name));
        // As at a start.
        DropForms();
        LinguaCorrente.clear();
        QCOMPARE(MLSTesto(QStringLiteral("0004")), QStringLiteral("scelta"));
        QCOMPARE(LinguaCorrente, name);
        QCOMPARE(Ticked(player.OpenMenu()), QStringList(name));
    }

    void aLanguageThatWasDeletedIsTickedNowhereAndHasNoTexts()
    {
        LanguagePlayer player;
        player.Folder.Write(QStringLiteral("lngmorlene/altra.lng"), "[Strings]\r\n0004=x\r\n");
        player.Folder.Remove(QStringLiteral("lngmorlene/prova.lng"));
        QCOMPARE(Ticked(player.OpenMenu()), QStringList());
        QCOMPARE(LinguaCorrente, QStringLiteral("prova"));
        QCOMPARE(MLSTesto(QStringLiteral("0004")), QString());
        QCOMPARE(MLSTesto(QStringLiteral("0007")), QString());
    }

    void onlyTheExactSpellingIsTicked()
    {
        LanguagePlayer player;
        player.Folder.Write(QStringLiteral("lngmorlene/LangSetting.ini"),
                            "[Language]\r\nCurrentLanguage=Prova\r\n");
        QCOMPARE(Ticked(player.OpenMenu()), QStringList());
        QCOMPARE(MLSTesto(QStringLiteral("0004")), QStringLiteral("Giusti"));
    }

    // It may have been changed by hand since the start.
    void theSettingIsReadAnewWhenTheMenuOpens()
    {
        LanguagePlayer player;
        player.Folder.Write(QStringLiteral("lngmorlene/altra.lng"), "[Strings]\r\n0004=x\r\n");
        LinguaCorrente = QStringLiteral("altra");
        QCOMPARE(Ticked(player.OpenMenu()), QStringList(QStringLiteral("prova")));
        QCOMPARE(LinguaCorrente, QStringLiteral("prova"));
    }

    void aChoiceReachesEveryWindowAndTheTextsByKeyButNotThePieces()
    {
        LanguagePlayer player;
        player.Folder.Write(QStringLiteral("lngmorlene/due.lng"),
                            "[Strings]\r\n0004=\"Right\"\r\n0007=\"The roof is\"\r\n"
                            "[FormEs1]\r\nFormEs1.Caption=\"Two\"\r\n"
                            "Command1(0).Caption=\"True\"\r\n");
        CaricaMessaggi();
        SuoniAttivi = false;
        player.Host.Seed(1);
        auto &form = player.Open<FormEs1>();
        QCOMPARE(form.Caption(), QStringLiteral("Uno"));
        Choose(player.OpenMenu(), QStringLiteral("due"));
        QCOMPARE(form.Caption(), QStringLiteral("Two"));
        QCOMPARE(form.Command1(0).Caption(), QStringLiteral("True"));
        QCOMPARE(MLSTesto(QStringLiteral("0004")), QStringLiteral("Right"));
        QCOMPARE(EtichettaEsatti, QStringLiteral(" Esatti"));
        QCOMPARE(Messaggi(1), QStringLiteral("Il tetto si mostra "));
    }
};

MORLENE_TEST(TestLanguages)
#include "test_languages.moc"
