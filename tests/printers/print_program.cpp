// Prints as the program does, told by lines on standard input, for the test of real printing. Boxes
// are answered from the line and told. Each command answers with one line of JSON, how long it took
// among it.
//
//     printers
//     default
//     sheet ORIENTATION                          of the default printer
//     window ORIENTATION COPIES ANSWER TITLE     a yellow window, at 10, 10, 100, 100 mm
//     picture ORIENTATION COPIES ANSWER TITLE    a picture, likewise
#include "platform/application.h"
#include "platform/form.h"
#include "platform/machine_host.h"
#include "platform/picture.h"
#include "platform/temporary_file.h"
#include "printing/print_engine.h"
#include "printing/print_fields.h"
#include "printing/print_pages.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <iostream>
#include <string>

using namespace platform;

namespace {

// The machine, with a person who answers each question the same way.
class ToldHost : public MachineHost {
public:
    using MachineHost::MachineHost;
    BoxAnswer MessageBox(const Box &box) override
    {
        Boxes.append(box.Title + QLatin1Char('|') + box.Text);
        return Answer;
    }
    QJsonArray Boxes;
    BoxAnswer Answer = BoxAnswer::Ok;
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
        QJsonObject said;
        if (command == QStringLiteral("printers"))
            said[QStringLiteral("printers")] =
                QJsonArray::fromStringList(host().Printers().Printers());
        if (command == QStringLiteral("default"))
            said[QStringLiteral("default")] = GetDefPrinterName();
        if (command == QStringLiteral("sheet")) {
            int32_t w = 0;
            int32_t h = 0;
            FoglioStampa(w, h, words.value(1).toDouble());
            said[QStringLiteral("sheet")] = QJsonArray{w, h};
        }
        if (command == QStringLiteral("window") || command == QStringLiteral("picture"))
            said[QStringLiteral("went on")] = Print(words);
        return said;
    }

private:
    bool Print(const QStringList &words)
    {
        Stampa.DevMode.Orientation = words.value(1).toShort();
        Stampa.NumeroCopie = words.value(2).toInt();
        m_host.Answer = words.value(3) == QStringLiteral("no") ? BoxAnswer::No : BoxAnswer::Cancel;
        if (!OpenDocPrinter(Stampa.NomeStampante))
            return false;
        const QString title = words.mid(4).join(QLatin1Char(' '));
        if (words.value(0) == QStringLiteral("window"))
            return Legge_Form(m_form) && StampaOggetto(&m_form, 10, 10, 100, 100, title);
        const QString file = MakeTemporaryFile(QStringLiteral("Fra"));
        m_picture.SaveImage(file);
        m_picture.LoadPicture(file);
        RemoveTemporaryFile(file);
        return StampaOggetto(static_cast<Control *>(&m_picture), 10, 10, 100, 100, title);
    }

    ToldHost &m_host;
    Form m_form;
    PictureBox m_picture;
};

} // namespace

int main(int argc, char **argv)
{
    ToldHost machine(QStringLiteral("/nonexistent/"));
    SetHost(&machine);
    const Application application(argc, argv);
    Shop shop(machine);
    std::string line;
    while (std::getline(std::cin, line)) {
        machine.Boxes = {};
        QElapsedTimer timer;
        timer.start();
        QJsonObject said = shop.Do(QString::fromStdString(line).split(QLatin1Char(' ')));
        said[QStringLiteral("milliseconds")] = timer.elapsed();
        said[QStringLiteral("boxes")] = machine.Boxes;
        std::cout << QJsonDocument(said).toJson(QJsonDocument::Compact).toStdString() << std::endl;
    }
    return 0;
}
