// How fast the adult's window is, to the last pixel on the screen: opening it from the menu, and
// its page of colours with the preview. Medians and the slowest, ms.
#include "measure.h"

#include "configuration/form_configura.h"
#include "platform/application.h"

#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int Visits = 15;

void Measure()
{
    std::vector<double> opening;
    std::vector<double> colours;
    std::vector<double> others;
    Paint();
    Shown<FormAvvio>("FormAvvio").Command1.OnClick();
    Paint();
    for (int visit = 0; visit < Visits; ++visit) {
        opening.push_back(Timed([] { Shown<FormMenu>("FormMenu").mnuConfigura.OnClick(); }));
        auto &window = Shown<FormConfigura>("FormConfigura");
        for (const int page : {2, 4, 2, 6})
            (page == 2 ? colours : others).push_back(Timed([&] {
                window.TabStrip1.SetSelectedItem(page);
            }));
        window.mnuEsci.OnClick();
        Paint();
    }
    for (const auto &[name, times] :
         {std::pair{"opening", opening}, {"page of colours", colours}, {"other pages", others}})
        std::printf("%-16s %.1f  slowest %.1f\n", name, Quantile(times, 0.5), Quantile(times, 1));
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir drive;
    BenchHost machine(drive.path() + QLatin1Char('/'));
    platform::SetHost(&machine);
    const platform::Application application(argc, argv);
    RegistraFinestre();
    RegistraFinestra(QStringLiteral("FormConfigura"),
                     []() -> platform::Form * { return new FormConfigura; });
    Main();
    Measure();
    return 0;
}
