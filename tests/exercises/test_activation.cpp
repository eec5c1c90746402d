// What each of the eight exercises does when it is opened, beyond its task: pointers, the figures'
// movie, and what is hidden before anything is seen.
#include "exercises/every_exercise.h"
#include "support/registered_tests.h"

#include <QMetaObject>
#include <QTest>

using namespace platform;

namespace {

const QString EventThatWaited = QStringLiteral("what waited came through");

// Asks the toolkit for an event that is told when it comes.
void PostEvent(Player &player)
{
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&player] { player.Host.Events << EventThatWaited; },
        Qt::QueuedConnection);
}

qsizetype LastWith(const QStringList &events, const QString &part)
{
    for (qsizetype i = events.size() - 1; i >= 0; --i)
        if (events.at(i).contains(part))
            return i;
    return -1;
}

qsizetype FirstWith(const QStringList &events, const QString &part)
{
    for (qsizetype i = 0; i < events.size(); ++i)
        if (events.at(i).contains(part))
            return i;
    return -1;
}

} // namespace

class TestActivation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theButtonsHaveTheirOwnPointerOrTheSystems_data()
    {
        QTest::addColumn<int>("exercise");
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("system");
        for (int exercise = 1; exercise <= 8; ++exercise)
            for (const int mode : {0, 1, 2, 3})
                for (const bool system : {false, true})
                    QTest::addRow("exercise %d, mode %d%s", exercise, mode,
                                  system ? ", the system's" : "")
                        << exercise << mode << system;
    }

    void theButtonsHaveTheirOwnPointerOrTheSystems()
    {
        QFETCH(int, exercise);
        QFETCH(int, mode);
        QFETCH(bool, system);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        DisabilitaMousePersonalizzato = system;
        player.Host.Seed(3);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        for (const Button &button : form.Command1) {
            // The instruction's own button answers the mouse in every mode.
            const bool help = (exercise == 3 || exercise == 8) && button.Index() == 1;
            const bool own = !system && (mode == 0 || help);
            QCOMPARE(button.MousePointer(),
                     own ? platform::MousePointer::Custom : platform::MousePointer::Default);
        }
    }

    void thePictureThatIsNeverShownIsHidden_data() { RowsOfExercises(); }
    void thePictureThatIsNeverShownIsHidden()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        QVERIFY(!form.PicMerlino.Visible());
        DoTheTask(form);
        QVERIFY(!form.PicMerlino.Visible());
    }

    void eventsThatWaitPassOnceTheFiguresAreOpen_data() { RowsOfExercises(); }
    void eventsThatWaitPassOnceTheFiguresAreOpen()
    {
        QFETCH(int, exercise);
        Player player;
        player.Host.Seed(3);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        player.Host.TakeEvents();
        PostEvent(player);
        form.OnActivate();
        const QStringList events = player.Host.TakeEvents();
        const qsizetype passed = events.indexOf(EventThatWaited);
        QVERIFY(LastWith(events, QStringLiteral("morlene1.swf")) < passed);
        QVERIFY(LastWith(events, QStringLiteral("GotoFrame")) < passed);
        QVERIFY(FirstWith(events, QStringLiteral("BGColor")) > passed);
    }

    // Opening takes time: only the grids, whose figures go, open them for each task.
    void aTaskOpensTheFiguresWhereItHasTo_data() { RowsOfExercises(); }
    void aTaskOpensTheFiguresWhereItHasTo()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        DoTheTask(form);
        player.Host.TakeEvents();
        ClickOn(NextTaskButton(form));
        const bool opened =
            FirstWith(player.Host.TakeEvents(), QStringLiteral("morlene1.swf")) >= 0;
        QCOMPARE(opened, exercise == 6 || exercise == 7);
    }

    void figuresThatComeAndGoAreHiddenAtTheLoad_data()
    {
        QTest::addColumn<int>("exercise");
        QTest::addColumn<QString>("last");
        QTest::newRow("the two sets") << 5 << QStringLiteral("ShockwaveFlash3(9)");
        QTest::newRow("the intruders") << 6 << QStringLiteral("ShockwaveFlash1(11)");
        QTest::newRow("who is it") << 7 << QStringLiteral("ShockwaveFlash1(11)");
    }
    void figuresThatComeAndGoAreHiddenAtTheLoad()
    {
        QFETCH(int, exercise);
        QFETCH(QString, last);
        Player player;
        player.Host.Seed(3);
        OpenExercise(player, exercise);
        const QStringList events = player.Host.TakeEvents();
        const qsizetype hidden = events.indexOf(last + QStringLiteral(".Visible=False"));
        QVERIFY(hidden >= 0);
        // Among the first steps of an activation.
        QVERIFY(hidden < FirstWith(events, QStringLiteral("PicMerlino.Visible=False")));
    }

    void aWindowThatComesBackStartsAnewInEveryExercise_data() { RowsOfExercises(); }
    void aWindowThatComesBackStartsAnewInEveryExercise()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        ChooseLevel(form, 2);
        DoTheTask(form);
        Errati = 2;
        const int16_t row = NumeroEserciziEseguiti;
        form.OnActivate();
        for (const auto &[panel, text] :
             QList<QPair<int, QString>>{{1, QStringLiteral("0 Esatti")},
                                        {2, QStringLiteral("0 Errati")},
                                        {3, QStringLiteral("1 Livello")}})
            QCOMPARE(form.StatusBar1.Panel(panel), text);
        QCOMPARE(NumeroEserciziEseguiti, row);
        QVERIFY(!NextTaskButton(form).Enabled());
    }
};

MORLENE_TEST(TestActivation)
#include "test_activation.moc"
