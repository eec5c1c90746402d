// How late the scanning is: steps of the automatic highlight against their grid, and real keys from
// their release to the light on the screen; with the machine idle and with one core busy.
#include "measure.h"

#include "core/profile.h"
#include "core/shared_state.h"
#include "exercises/form_es1.h"
#include "platform/application.h"

#include <QEventLoop>
#include <QTemporaryDir>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

namespace {

constexpr int Steps = 200;
constexpr int Interval = 250; // ms
constexpr int Keys = 200;

class WatchingHost : public BenchHost {
public:
    using BenchHost::BenchHost;
    bool Watches() const override { return true; }
    void Changed(const QString &what) override
    {
        if (what == QStringLiteral("Timer1.Enabled=True"))
            Started = Now();
        if (what.startsWith(QStringLiteral("Command1(")) &&
            what.endsWith(QStringLiteral(".BackColor=000000ff"))) {
            Lit.push_back(Now());
            if (OnLit)
                OnLit();
        }
    }
    double Started = 0;
    std::vector<double> Lit;
    std::function<void()> OnLit;
};

void Print(const char *what, const std::vector<double> &times)
{
    std::printf("  %-38s %6.2f %6.2f %6.2f\n", what, Quantile(times, 0.5), Quantile(times, 0.99),
                Quantile(times, 1));
    std::fflush(stdout);
}

// As the menu does it.
FormEs1 &Open(int mode)
{
    NumeroEserciziEseguiti = 1;
    ModoInput = static_cast<int16_t>(mode);
    VelocitaScansione = 1;
    MostraFinestra(QStringLiteral("FormEs1"));
    ScaricaFinestra(QStringLiteral("FormMenu"));
    Paint();
    return Shown<FormEs1>("FormEs1");
}

std::vector<double> Lateness(WatchingHost &machine)
{
    QEventLoop loop;
    machine.OnLit = [&] {
        if (machine.Lit.size() > Steps)
            loop.quit();
    };
    machine.Lit.clear();
    FormEs1 &window = Open(2);
    // The first light is the activation's own.
    loop.exec();
    machine.OnLit = nullptr;
    std::vector<double> late;
    for (size_t step = 1; step <= Steps; ++step)
        late.push_back(machine.Lit.at(step) - machine.Started -
                       static_cast<double>(step) * Interval);
    window.mnuEsci.OnClick();
    Paint();
    return late;
}

std::vector<double> KeyToLight(WatchingHost &machine)
{
    FormEs1 &window = Open(1);
    xcb_connection_t *keyboard = xcb_connect(nullptr, nullptr);
    xcb_key_symbols_t *symbols = xcb_key_symbols_alloc(keyboard);
    xcb_keycode_t *codes = xcb_key_symbols_get_keycode(symbols, ' ');
    std::vector<double> times;
    QEventLoop loop;
    machine.OnLit = [&] { loop.quit(); };
    const auto wait = [&](int milliseconds) {
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
    };
    wait(500);
    for (int key = 0; key < Keys; ++key) {
        xcb_test_fake_input(keyboard, XCB_KEY_PRESS, codes[0], 0, XCB_NONE, 0, 0, 0);
        xcb_flush(keyboard);
        wait(40 + key % 23);
        const double released = Now();
        xcb_test_fake_input(keyboard, XCB_KEY_RELEASE, codes[0], 0, XCB_NONE, 0, 0, 0);
        xcb_flush(keyboard);
        loop.exec();
        Paint();
        times.push_back(Now() - released);
    }
    machine.OnLit = nullptr;
    std::free(codes);
    xcb_key_symbols_free(symbols);
    xcb_disconnect(keyboard);
    window.mnuEsci.OnClick();
    Paint();
    return times;
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir drive;
    WatchingHost machine(drive.path() + QLatin1Char('/'));
    platform::SetHost(&machine);
    platform::Application application(argc, argv);
    RegistraFinestre();
    Main();
    Paint();
    Shown<FormAvvio>("FormAvvio").Command1.OnClick();
    Paint();
    SuoniAttivi = false;
    std::printf("ms: median, 99th percentile, worst of %d\n", Steps);
    Print("step of 250 ms late, idle", Lateness(machine));
    Print("key release to the light, idle", KeyToLight(machine));
    const pid_t busy = fork();
    if (busy == 0)
        while (getppid() != 1)
            continue;
    Print("step of 250 ms late, one core busy", Lateness(machine));
    Print("key release to the light, one core busy", KeyToLight(machine));
    kill(busy, SIGKILL);
    waitpid(busy, nullptr, 0);
    return 0;
}
