// Prints as a person at the program does, told by lines on standard input, for the test of real
// printing. The argument is the folder with the program's data.
//
//     printers
//     default
//     sheet ORIENTATION
//     window ORIENTATION COPIES ANSWER HOLD TITLE     a yellow window with a green picture in it
//     picture ORIENTATION COPIES ANSWER HOLD TITLE    the green picture alone
//     abandon                                         a document that is begun and not ended
//     quick                                           the window, without a dialog
//     report ROWS                                     the log of exercises
//     look ROWS FOLDER                                pictures of dialog and log on the screen
//
// ANSWER is "yes", "no" or "cancel" to each question. With HOLD "hold" the open dialog says so and
// waits for a line before it prints. Each command answers with one line: the boxes that came, and
// how long the person waited.
#include "core/profile.h"
#include "core/shared_state.h"
#include "frame/quick_print.h"
#include "platform/controls/form.h"
#include "platform/controls/picture.h"
#include "platform/machine/application.h"
#include "platform/machine/machine_host.h"
#include "printing/frm_stampa.h"
#include "printing/print_engine.h"
#include "printing/stampa_fpb.h"
#include "results/form_esercizi_eseguiti.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPixmap>
#include <QStringList>
#include <QWidget>

#include <iostream>
#include <string>
#include <utility>

using namespace platform;

namespace {

void Say(const QJsonObject &said)
{
    std::cout << QJsonDocument(said).toJson(QJsonDocument::Compact).toStdString() << std::endl;
}

// The machine, with a person who does as told.
class ToldHost : public MachineHost {
public:
    explicit ToldHost(QString application)
        : MachineHost(QStringLiteral("/nonexistent/")), m_application(std::move(application))
    {
    }
    QString ApplicationFolder() override { return m_application; }
    BoxAnswer MessageBox(const Box &box) override
    {
        Boxes.append(box.Title + QLatin1Char('|') + box.Text);
        if (box.Buttons == BoxButtons::Ok)
            return BoxAnswer::Ok;
        return Answer == QStringLiteral("yes")  ? BoxAnswer::Yes
               : Answer == QStringLiteral("no") ? BoxAnswer::No
                                                : BoxAnswer::Cancel;
    }
    void WaitForModal(ModalWindow &window) override
    {
        auto &dialog = dynamic_cast<FrmStampa &>(window);
        if (!Picture.isEmpty()) {
            dialog.Window()->grab().save(Picture);
            dialog.cmdChiudi.OnClick();
            return;
        }
        dialog.txtNCopies.SetText(Copies);
        if (Hold) {
            Opened = Waited.elapsed();
            Say({{QStringLiteral("open"), true}, {QStringLiteral("milliseconds"), Opened}});
            std::string line;
            std::getline(std::cin, line);
            Waited.restart();
        }
        dialog.cmdStampa.OnClick();
        if (!dialog.Unloaded())
            dialog.cmdChiudi.OnClick();
    }

    QJsonArray Boxes;
    QString Answer;
    QString Copies;
    QString Picture; // of the dialog, instead of a print
    bool Hold = false;
    qint64 Opened = 0;
    QElapsedTimer Waited;

private:
    QString m_application;
};

class Shop {
public:
    explicit Shop(ToldHost &host)
        : m_host(host), m_form("Finestra", 6000, 6000),
          m_picture({m_form, "Picture1"}, {1500, 1500, 1500, 1500})
    {
        m_form.SetBackColor(Rgb(0xFF, 0xFF, 0));
        m_picture.SetBackColor(Rgb(0, 0x80, 0));
    }

    QJsonObject Do(const QStringList &words)
    {
        const QString command = words.value(0);
        if (command == QStringLiteral("printers"))
            return {{command, QJsonArray::fromStringList(host().Printers().Printers())}};
        if (command == QStringLiteral("default"))
            return {{command, GetDefPrinterName()}};
        if (command == QStringLiteral("sheet")) {
            int32_t w = 0;
            int32_t h = 0;
            FoglioStampa(w, h, words.value(1).toDouble());
            return {{command, QJsonArray{w, h}}};
        }
        if (command == QStringLiteral("quick"))
            StampaVeloce(m_form);
        if (command == QStringLiteral("abandon"))
            Abandon();
        if (command == QStringLiteral("report"))
            Report(words.value(1).toInt(), {});
        if (command == QStringLiteral("look")) {
            m_host.Picture = words.value(2) + QStringLiteral("/dialog.png");
            StampaConOpzioni(m_form, 1);
            m_host.Picture = words.value(2) + QStringLiteral("/setup.png");
            StampaFPB({});
            m_host.Picture.clear();
            Report(words.value(1).toInt(), words.value(2) + QStringLiteral("/log.png"));
        }
        if (command == QStringLiteral("window") || command == QStringLiteral("picture"))
            Print(words);
        return {};
    }

private:
    void Print(const QStringList &words)
    {
        m_host.Copies = words.value(2);
        m_host.Answer = words.value(3);
        m_host.Hold = words.value(4) == QStringLiteral("hold");
        OggettoDaStampare object = &m_form;
        if (words.value(0) == QStringLiteral("picture"))
            object = static_cast<Control *>(&m_picture);
        StampaFPB({.Oggetto = object,
                   .X = 10,
                   .Y = 10,
                   .W = 100,
                   .H = 100,
                   .Orientamento = words.value(1).toInt(),
                   .Titolo = words.mid(5).join(QLatin1Char(' '))});
    }

    static void Abandon()
    {
        const auto device = host().Printers().CreateDevice(GetDefPrinterName(), {});
        device->StartDocument(QStringLiteral("Lasciato"));
        device->StartPage();
        device->Draw(PageText{1000, 1000, QStringLiteral("Lasciato"), {}});
        device->EndPage();
    }

    // Titles of two exercises in turn, with letters that not every font has.
    void Report(int rows, const QString &picture)
    {
        m_host.Answer = QStringLiteral("yes");
        NomeUtente = QStringLiteral("Niccolò, perché così è più bello");
        EtichettaLivello = QStringLiteral(" Livello");
        EtichettaEsatti = QStringLiteral(" Esatti");
        EtichettaErrati = QStringLiteral(" Errati");
        NumeroEserciziEseguiti = static_cast<int16_t>(rows);
        for (int row = 1; row <= rows; row += 2) {
            EserciziEseguiti(row, 0) = row % 4 == 1 ? QStringLiteral("Trova l'intrusa: età, città")
                                                    : QStringLiteral("Uguali - 1°");
            EserciziEseguiti(row, 1) = QString::number(row % 4);
            EserciziEseguiti(row, 2) = QString::number(row);
            EserciziEseguiti(row, 3) = QString::number(row / 7);
        }
        auto &log = *new FormEserciziEseguiti;
        log.Show();
        if (picture.isEmpty())
            log.mnuStampa.OnClick();
        DoEvents();
        if (!picture.isEmpty())
            log.Window()->grab().save(picture);
        log.Drop();
    }

    ToldHost &m_host;
    Form m_form;
    PictureBox m_picture;
};

} // namespace

int main(int argc, char **argv)
{
    ToldHost machine(QString::fromLocal8Bit(argv[1]));
    SetHost(&machine);
    const Application application(argc, argv);
    Shop shop(machine);
    std::string line;
    while (std::getline(std::cin, line)) {
        machine.Boxes = {};
        machine.Waited.start();
        QJsonObject said = shop.Do(QString::fromStdString(line).split(QLatin1Char(' ')));
        said[QStringLiteral("milliseconds")] = machine.Waited.elapsed();
        said[QStringLiteral("boxes")] = machine.Boxes;
        Say(said);
    }
    return 0;
}
