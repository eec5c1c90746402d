// The players that are shipped, one for each language but Italian: their colours have their names
// in it, and all else is as of a new player.
#include "core/profile.h"
#include "menu/form_menu.h"
#include "platform/files/files.h"
#include "support/registered_tests.h"
#include "support/speaking_player.h"

#include <QDir>
#include <QTest>

namespace {

QString Folder()
{
    return QStringLiteral(SOURCE_DIR "/data/giocatori/");
}

QByteArray Content(const QString &file)
{
    QFile ready(Folder() + file);
    return ready.open(QIODevice::ReadOnly) ? ready.readAll() : QByteArray();
}

QString OnDrive(const QString &file)
{
    return QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/") + file;
}

void RowsOfPlayers()
{
    QTest::addColumn<QString>("file");
    for (const QString &file : QDir(Folder()).entryList({QStringLiteral("*.ini")}))
        QTest::newRow(qPrintable(file)) << file;
}

QString LanguageOfPlayer(const QString &file)
{
    return file.chopped(4).toLower();
}

} // namespace

class TestReadyPlayers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyLanguageButItalianHasOne()
    {
        QStringList players;
        for (const QString &language : LanguageNames())
            if (language != QStringLiteral("italiano.lng"))
                players << ReadyPlayerOf(LanguageOf(language)) + QStringLiteral(".ini");
        players.sort();
        QStringList files = QDir(Folder()).entryList({QStringLiteral("*.ini")});
        files.sort();
        QCOMPARE(files, players);
    }

    // A file that does not load gives the defaults, and Italian colours.
    void itLoadsAndIsSavedAsItIs_data() { RowsOfPlayers(); }
    void itLoadsAndIsSavedAsItIs()
    {
        QFETCH(QString, file);
        SpeakingPlayer player(LanguageOfPlayer(file));
        SuoniAttivi = true; // off in tests
        QVERIFY(Colori(4, 1) != QStringLiteral("giallo"));
        player.Host.WriteDriveFile(OnDrive(file), "x");
        SalvaImpostazioni();
        QCOMPARE(player.Host.DriveFile(OnDrive(file)), Content(file));
        QCOMPARE(Content(file).count("\r\n"), 43);
    }

    void itIsANewPlayerButForTheNamesOfItsColours_data() { RowsOfPlayers(); }
    void itIsANewPlayerButForTheNamesOfItsColours()
    {
        QFETCH(QString, file);
        SpeakingPlayer player(LanguageOfPlayer(file));
        SuoniAttivi = true;
        const QStringList ready = QString::fromLatin1(Content(file)).split(QStringLiteral("\r\n"));
        ImpostazioniPredefinite();
        SalvaImpostazioni();
        const QStringList fresh =
            QString::fromLatin1(player.Host.DriveFile(OnDrive(file))).split(QStringLiteral("\r\n"));
        QCOMPARE(ready.size(), fresh.size());
        for (qsizetype line = 0; line < ready.size(); ++line) {
            const bool name = line >= 9 && line < 29 && (line - 9) % 5 != 0;
            // German has its nouns with a capital, which small letters would take from them.
            const bool style = line == 30 && file == QStringLiteral("Deutsch.ini");
            if (name)
                QVERIFY2(!ready.at(line).trimmed().isEmpty(), qPrintable(QString::number(line)));
            else if (style)
                QCOMPARE(ready.at(line), QStringLiteral("maiuscolo"));
            else
                QCOMPARE(ready.at(line), fresh.at(line));
        }
    }

    void itIsChosenInTheMenuAlsoWithItsNameInCapitals_data() { RowsOfPlayers(); }
    void itIsChosenInTheMenuAlsoWithItsNameInCapitals()
    {
        QFETCH(QString, file);
        SpeakingPlayer player(LanguageOfPlayer(file));
        const QString yellow = Colori(4, 1);
        FileUtente = CartellaImpostazioni() + QStringLiteral("_predefinito.INI");
        NomeUtente = QStringLiteral("_predefinito");
        ImpostazioniPredefinite();
        TipoCarattere = QStringLiteral("maiuscolo");
        SalvaImpostazioni();
        auto *menu = new FormMenu;
        menu->Show();
        QCoreApplication::processEvents();
        QVERIFY(menu->Combo1.Visible());
        const QString name = file.chopped(4).toUpper();
        int item = -1;
        for (int i = 0; i < menu->Combo1.ListCount(); ++i)
            if (menu->Combo1.List(i) == name)
                item = i;
        QVERIFY(item >= 0);
        menu->Combo1.SetListIndex(item);
        QCOMPARE(NomeUtente, name);
        QCOMPARE(Colori(4, 1), yellow);
        // The same file and no second one.
        QCOMPARE(QDir(player.Host.Drive.filePath(OnDrive(QString()))).entryList(QDir::Files).size(),
                 2);
    }
};

MORLENE_TEST(TestReadyPlayers)
#include "test_ready_players.moc"
