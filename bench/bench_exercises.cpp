// How fast the exercises are, each to its last pixel on the screen: the way from the menu, the next
// task, and what shows many figures at once.
#include "measure.h"

#include "core/profile.h"
#include "core/shared_state.h"
#include "exercises/form_es2.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "exercises/form_es6.h"
#include "exercises/form_es8.h"
#include "platform/application.h"

#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int Visits = 9; // of each window
constexpr int Tasks = 100;

constexpr const char *Names[] = {"FormEs1", "FormEs2", "FormEs8", "FormEs3",
                                 "FormEs4", "FormEs5", "FormEs6", "FormEs7"};

void Print(const char *what, const std::vector<double> &times)
{
    std::printf("  %-34s %6.1f %6.1f\n", what, Quantile(times, 0.5), Quantile(times, 0.99));
    std::fflush(stdout);
}

FinestraEsercizio &Open(int entry)
{
    Shown<FormMenu>("FormMenu").Command1.OnClick(entry);
    Paint();
    return Shown<FinestraEsercizio>(Names[entry]);
}

void Leave(FinestraEsercizio &window)
{
    window.mnuEsci.OnClick();
    Paint();
}

void FromTheMenu()
{
    for (int entry = 0; entry < 8; ++entry) {
        std::vector<double> times;
        for (int visit = 0; visit < Visits; ++visit) {
            times.push_back(Timed([&] { Shown<FormMenu>("FormMenu").Command1.OnClick(entry); }));
            Leave(Shown<FinestraEsercizio>(Names[entry]));
        }
        Print(Names[entry], times);
    }
}

void NextTask(int entry, int level, const char *what)
{
    FinestraEsercizio &window = Open(entry);
    std::vector<double> times;
    for (int task = 0; task < Tasks; ++task) {
        NumeroEserciziEseguiti = 1;
        times.push_back(Timed([&] { window.mnuLiv.OnClick(level); }));
    }
    Print(what, times);
    Leave(window);
}

// With all the figures of both sets on the screen.
void NextFigure()
{
    auto &window = dynamic_cast<FormEs5 &>(Open(5));
    std::vector<double> figures;
    std::vector<double> copies;
    while (figures.size() < Tasks) {
        // Nine in each set: the next right answer ends the series.
        window.NumeroSi = 0;
        window.NumeroNo = 0;
        for (platform::MovieControl &figure : window.ShockwaveFlash2)
            figure.SetVisible(true);
        for (platform::MovieControl &figure : window.ShockwaveFlash3)
            figure.SetVisible(true);
        Paint();
        for (int answer = 0; answer < 9; ++answer)
            figures.push_back(Timed([&] { window.Command1.OnClick(window.IndiceEsatto); }));
    }
    Print("next figure, 21 on the screen", figures);
    for (int copy = 0; copy < Tasks; ++copy)
        copies.push_back(
            Timed([&] { ColoraFigura(window.ShockwaveFlash2(0), window.ColoreParte); }));
    Print("one small figure painted", copies);
    Leave(window);
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir drive;
    BenchHost machine(drive.path() + QLatin1Char('/'));
    platform::SetHost(&machine);
    platform::Application application(argc, argv);
    RegistraFinestre();
    Main();
    Paint();
    Shown<FormAvvio>("FormAvvio").Command1.OnClick();
    Paint();
    SuoniAttivi = false;
    std::printf("from the menu, ms to the last pixel: median and 99th percentile of %d\n", Visits);
    FromTheMenu();
    std::printf("in the window, of %d\n", Tasks);
    NextTask(1, 1, "FormEs2, next task");
    NextTask(4, 4, "FormEs4, next task");
    NextFigure();
    NextTask(6, 5, "FormEs6, twelve figures");
    NextTask(7, 5, "FormEs7, twelve figures");
    NextTask(2, 4, "FormEs8, next task");
    return 0;
}
