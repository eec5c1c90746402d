// The state that all windows share: its bounds, and its values at the start of a process.
#include "core/shared_state.h"

#include "core/palette.h"
#include "core/profile.h"
#include "core/windows.h"
#include "language/language.h"
#include "platform/base/errors.h"
#include "platform/controls/form.h"
#include "support/cls_resize.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QTest>

using namespace platform;

namespace {

class Window : public Form {
public:
    Window() : Form("Prova", 3000, 3000)
    {
        ++Made;
        OnActivate = [] { ++Activated; };
    }
    static inline int Made = 0;
    static inline int Activated = 0;
};

int ErrorAt(int row, int column)
{
    return Skipping([&] { EserciziEseguiti(row, column) = QStringLiteral("x"); });
}

} // namespace

class TestSharedState : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { AzzeraStatoCondiviso(); }

    void theLogHas501RowsOfFourColumns()
    {
        QCOMPARE(ErrorAt(0, 0), 0);
        QCOMPARE(ErrorAt(500, 3), 0);
        QCOMPARE(ErrorAt(501, 0), int(SubscriptOutOfRange));
        QCOMPARE(ErrorAt(-1, 0), int(SubscriptOutOfRange));
        QCOMPARE(ErrorAt(0, 4), int(SubscriptOutOfRange));
        QCOMPARE(ErrorAt(0, -1), int(SubscriptOutOfRange));
    }

    void everyCellOfTheLogIsItsOwn()
    {
        for (int row = 0; row < RigheEserciziEseguiti; ++row)
            for (int column = 0; column < 4; ++column)
                EserciziEseguiti(row, column) = QStringLiteral("%1/%2").arg(row).arg(column);
        for (int row = 0; row < RigheEserciziEseguiti; ++row)
            for (int column = 0; column < 4; ++column)
                QCOMPARE(EserciziEseguiti(row, column),
                         QStringLiteral("%1/%2").arg(row).arg(column));
    }

    void coloursAndSentencePiecesHaveTheirBounds()
    {
        QCOMPARE(Skipping([] { Colori(5, 4).clear(); }), 0);
        QCOMPARE(Skipping([] { Colori(6, 0).clear(); }), int(SubscriptOutOfRange));
        QCOMPARE(Skipping([] { Colori(0, 5).clear(); }), int(SubscriptOutOfRange));
        QCOMPARE(Skipping([] { Messaggi(34).clear(); }), 0);
        QCOMPARE(Skipping([] { Messaggi(35).clear(); }), int(SubscriptOutOfRange));
        QCOMPARE(Skipping([] { Messaggi(-1).clear(); }), int(SubscriptOutOfRange));
    }

    void aResetPutsAllBackToTheStartOfTheProcess()
    {
        const QString text = QStringLiteral("x");
        Ridimensionatore = std::make_shared<clsResize>();
        Esatti = 70000;
        Errati = 3;
        NumeroEserciziEseguiti = 4;
        EserciziEseguiti(4, 0) = text;
        for (QString *field :
             {&EtichettaEsatti, &EtichettaErrati, &EtichettaLivello, &UltimoFileScelto,
              &LinguaCorrente, &TipoCarattere, &FontCorrente, &FontScelto, &StringaProfilo,
              &NomePersonaggio, &FileUtente, &NomeUtente, &Colori(5, 4), &Messaggi(34)})
            *field = text;
        for (double *field : {&ColoreSfondo, &ColoreFont, &ColoreBottoni,
                              &ColorePulsantiSelezionati, &ColoreSfondoTesto})
            *field = 1;
        ModoInput = VelocitaScansione = DimensioneFont = 1;
        SuoniAttivi = DisabilitaMousePersonalizzato = ColoriVari = true;
        PassaggioLivelli = SalvaUtente = true;
        PreparaColoriWeb();

        AzzeraStatoCondiviso();
        QVERIFY(!Ridimensionatore);
        QCOMPARE(Esatti, 0);
        QCOMPARE(Errati, int16_t(0));
        QCOMPARE(NumeroEserciziEseguiti, int16_t(0));
        for (const QString &field :
             {EserciziEseguiti(4, 0), EtichettaEsatti, EtichettaErrati, EtichettaLivello,
              UltimoFileScelto, LinguaCorrente, TipoCarattere, FontCorrente, FontScelto,
              StringaProfilo, NomePersonaggio, FileUtente, NomeUtente, Colori(5, 4), Messaggi(34),
              ColoriWebHex.at(0), ColoriWebLetterali.at(215)})
            QCOMPARE(field, QString());
        for (const double field : {ColoreSfondo, ColoreFont, ColoreBottoni,
                                   ColorePulsantiSelezionati, ColoreSfondoTesto})
            QCOMPARE(field, 0.0);
        for (const int16_t field : {ModoInput, VelocitaScansione, DimensioneFont})
            QCOMPARE(field, int16_t(0));
        for (const bool field : {SuoniAttivi, DisabilitaMousePersonalizzato, ColoriVari,
                                 PassaggioLivelli, SalvaUtente})
            QCOMPARE(field, false);
    }

    void aWindowIsMadeOnceAndAnewAfterItWasUnloaded()
    {
        ScriptedHost host;
        const QString name = QStringLiteral("Prova");
        RegistraFinestra(name, []() -> Form * { return new Window; });
        QVERIFY(Form::Find(name) == nullptr);
        MostraFinestra(name);
        MostraFinestra(name);
        QCOMPARE(Window::Made, 1);
        QCOMPARE(Window::Activated, 1);
        QVERIFY(Form::Find(name) != nullptr);
        ScaricaFinestra(name);
        QVERIFY(Form::Find(name) == nullptr);
        QVERIFY(host.Ended); // it was the last one
        MostraFinestra(name);
        QCOMPARE(Window::Made, 2);
    }

    void aWindowThatNobodyMakesIsABadCall()
    {
        ScriptedHost host;
        const QString name = QStringLiteral("FormIgnota");
        QCOMPARE(Skipping([&] { MostraFinestra(name); }), int(BadCall));
        ScaricaFinestra(name);
        QVERIFY(Form::Loaded().empty());
    }
};

MORLENE_TEST(TestSharedState)
#include "test_shared_state.moc"
