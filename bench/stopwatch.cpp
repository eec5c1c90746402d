// Times the program as a person would with a stop-watch: it is started, gets real presses and keys,
// and counts until the last pixel on the screen. An empty window of the toolkit is measured in turn
// with it. Prints one line a figure: what | program | empty window.
//
//     bench_stopwatch PIXELS DRIVE [--smoke] [SECTION...]
//
// PIXELS is the file in which the display server keeps its screen; DRIVE the program's own drive.
// Sections are named at the end of this file; without one all are measured.
#include "screen.h"
#include "watched_program.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <optional>

#include <X11/keysym.h>

namespace {

using namespace std::chrono_literals;

// Longer than anything the program leaves for later, shorter than the blinking of a text's cursor.
constexpr auto Quiet = 350ms;
constexpr int MenuBarMiddle = 12; // pixels

bool smoke = false; // every step once, for its own sake
std::string folder; // of the programs

int Times(int usual)
{
    return smoke ? 1 : usual;
}

double Quantile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0
                          : values.at(static_cast<size_t>(
                                part * static_cast<double>(values.size() - 1) + 0.5));
}

void Print(const std::string &what, double program, std::optional<double> empty = {})
{
    std::printf("%s|%.1f|", what.c_str(), program);
    if (empty)
        std::printf("%.1f", *empty);
    std::printf("\n");
    std::fflush(stdout);
}

// --- The way through the program ---

struct Window {
    const char *Name;
    std::function<std::pair<int, int>(const Screen &)> Place; // of what opens it, in the menu
    bool InMenu = false;                                      // the second item of the menu there
    xcb_keysym_t LeaveBy = 0;                                 // 0: the mnemonic of "Esci"
};

std::pair<int, int> Item(const Screen &screen, double left, double top)
{
    // The designed size of the menu's client area and of an item, twips.
    const double x = (left + 510) / 7200 * screen.Width();
    const double y = MenuBarMiddle * 2 + (top + 360) / 5640 * (screen.Height() - MenuBarMiddle * 2);
    return {static_cast<int>(x), static_cast<int>(y)};
}

Window Exercise(const char *name, double left, double top)
{
    return {name, [=](const Screen &screen) { return Item(screen, left, top); }};
}

Window InBar(const char *name, int x, bool inMenu = false, xcb_keysym_t leaveBy = 0)
{
    return {name, [=](const Screen &) { return std::pair(x, MenuBarMiddle); }, inMenu, leaveBy};
}

const std::vector<Window> windows = {
    InBar("configuration", 50),           InBar("log", 190),
    InBar("about", 310, true, XK_Return), Exercise("exercise 1", 1200, 360),
    Exercise("exercise 2", 1200, 1680),   Exercise("exercise 8", 1200, 3000),
    Exercise("exercise 3", 1200, 4320),   Exercise("exercise 4", 3600, 360),
    Exercise("exercise 5", 3600, 1680),   Exercise("exercise 6", 3600, 3000),
    Exercise("exercise 7", 3600, 4320),
};

[[noreturn]] void Fail(const std::string &what)
{
    std::fprintf(stderr, "bench: %s\n", what.c_str());
    std::exit(1);
}

// Milliseconds from the last part of an action to the last pixel.
double Timed(Screen &screen, const std::string &what, const std::function<void()> &act)
{
    screen.Begin();
    const auto start = Clock::now();
    act();
    const auto last = screen.LastPixel(Quiet);
    if (last < start)
        Fail(what + ": nothing changed on the screen");
    return Milliseconds(last - start);
}

double ToTheMenu(Screen &screen)
{
    screen.Press(screen.Width() / 2, screen.Height() * 9 / 10);
    return Timed(screen, "splash to menu", [&] { screen.Release(); });
}

double Open(Screen &screen, const Window &window)
{
    const auto [x, y] = window.Place(screen);
    screen.Press(x, y);
    if (window.InMenu) {
        screen.Release();
        screen.WaitUntilQuiet(Quiet);
        // "about" is the second item.
        screen.Press(x, y + 4 * MenuBarMiddle);
    }
    return Timed(screen, window.Name, [&] { screen.Release(); });
}

double Leave(Screen &screen, const Window &window)
{
    return Timed(screen, std::string("leaving ") + window.Name, [&] {
        if (window.LeaveBy != 0) {
            screen.KeyDown(window.LeaveBy);
            screen.KeyUp(window.LeaveBy);
            return;
        }
        screen.KeyDown(XK_Alt_L);
        screen.KeyDown(XK_e);
        screen.KeyUp(XK_e);
        screen.KeyUp(XK_Alt_L);
    });
}

const Window &Named(const char *name)
{
    return *std::find_if(windows.begin(), windows.end(),
                         [&](const Window &one) { return std::strcmp(one.Name, name) == 0; });
}

// --- The settings that the program finds ---

class Player {
public:
    explicit Player(std::string drive) : m_folder(std::move(drive))
    {
        m_folder += "/ImpostazioniProgrammiTesmi/morlenekvt/";
        std::filesystem::create_directories(m_folder);
        Is(0);
    }
    // How the player answers: 0 by the pointer, 2 by the automatic scanning, 3 by arrow keys.
    void Is(int mode) const { Write("_predefinito.INI", mode); }
    void Others(int count) const
    {
        for (int number = 0; number < count; ++number)
            Write("Bambino " + std::to_string(number) + ".ini", 0);
    }
    void OthersGo() const
    {
        for (const auto &entry : std::filesystem::directory_iterator(m_folder))
            if (entry.path().filename().string().rfind("Bambino", 0) == 0)
                std::filesystem::remove(entry.path());
    }

private:
    void Write(const std::string &name, int mode) const
    {
        std::ofstream file(m_folder + name);
        // Silent, and with the log.
        file << "False\r\nFalse\r\n " << mode << " \r\n 2 \r\n";
        for (const char *colour :
             {"FFFFCC\r\nsfondo\r\nsfondo\r\nsfondo\r\nsfondo",
              "00FF00\r\nverde\r\nverdi\r\nverde\r\nverdi",
              "FF0000\r\nrosso\r\nrossi\r\nrossa\r\nrosse", "0000FF\r\nblu\r\nblu\r\nblu\r\nblu",
              "FFFF00\r\ngiallo\r\ngialli\r\ngialla\r\ngialle"})
            file << colour << "\r\n";
        file << " 16777088 \r\nminuscolo\r\narial\r\narial\r\n 24 \r\n-2147483630 \r\n"
                "-2147483633 \r\nTrue\r\n 255 \r\n 16777215 \r\nFalse\r\nTrue\r\nProfilo\r\n"
                "Merlin\r\n";
    }

    std::string m_folder;
};

// --- What is measured ---

struct Started {
    double Mapped, Full, Processor, Memory;
};

Started Start(Screen &screen, const char *name, std::optional<Program> &program,
              const char *argument = nullptr)
{
    screen.WaitUntilQuiet(Quiet);
    // Off the window's controls, which would light up.
    screen.Move(screen.Width() - 1, screen.Height() / 2);
    screen.Begin();
    const auto start = Clock::now();
    std::vector<std::string> command{folder + name};
    if (argument != nullptr)
        command.emplace_back(argument);
    program.emplace(command);
    const bool painted = screen.FirstPainting(10s) > start;
    const auto last = screen.LastPixel(Quiet);
    if (!painted || !program->Runs())
        Fail(std::string(name) + " did not start");
    return {Milliseconds(screen.Mapped() - start), Milliseconds(last - start),
            program->ProcessorTime(), program->ResidentMebibytes()};
}

constexpr const char *TheProgram = "bench_program";

void Starts(Screen &screen)
{
    std::map<std::string, std::vector<double>> times[2];
    for (int run = 0; run < Times(9); ++run)
        for (const int empty : {0, 1}) {
            std::optional<Program> program;
            const Started took =
                Start(screen, empty != 0 ? "bench_empty_window" : TheProgram, program);
            times[empty]["start, window mapped, ms"].push_back(took.Mapped);
            times[empty]["start, last pixel, ms"].push_back(took.Full);
            times[empty]["start, processor, ms"].push_back(took.Processor);
            times[empty]["memory after the start, MiB"].push_back(took.Memory);
        }
    for (const auto &[what, own] : times[0])
        Print(what, Quantile(own, 0.5), Quantile(times[1][what], 0.5));
}

// A window of the toolkit with nothing in it that takes the place of another.
double EmptyChange(Screen &screen)
{
    std::vector<double> times;
    for (int run = 0; run < Times(7); ++run) {
        std::optional<Program> program;
        Start(screen, "bench_empty_window", program);
        times.push_back(ToTheMenu(screen));
    }
    return Quantile(times, 0.5);
}

// Each window for the first and for the second time in a process, and the memory of it all.
void Tours(Screen &screen)
{
    std::vector<double> menu, memory, later;
    std::map<std::string, std::vector<double>> first, second;
    for (int run = 0; run < Times(3); ++run) {
        std::optional<Program> program;
        Start(screen, TheProgram, program);
        menu.push_back(ToTheMenu(screen));
        const int tours = smoke ? 1 : run == 0 ? 10 : 2;
        for (int tour = 0; tour < tours; ++tour) {
            for (const Window &window : windows) {
                const double before = program->ProcessorTime();
                const double time = Open(screen, window);
                const double processor = program->ProcessorTime() - before;
                auto &times = tour == 0 ? first : second;
                if (tour < 2) {
                    times[window.Name].push_back(time);
                    times[window.Name + std::string("|processor")].push_back(processor);
                }
                Leave(screen, window);
            }
            if (tour == 0)
                memory.push_back(program->ResidentMebibytes());
            if (tour == 9)
                later.push_back(program->ResidentMebibytes());
        }
    }
    Print("splash to menu, ms", Quantile(menu, 0.5), EmptyChange(screen));
    for (const Window &window : windows) {
        const std::string name = window.Name;
        Print("menu to " + name + ", ms", Quantile(first[name], 0.5));
        if (!second[name].empty())
            Print("  the second time, ms", Quantile(second[name], 0.5));
        Print("  processor, first time, ms", Quantile(first[name + "|processor"], 0.5));
    }
    Print("memory after all windows, MiB", Quantile(memory, 0.5));
    if (!later.empty())
        Print("  after ten times all windows, MiB", later.front());
}

void LongLog(Screen &screen)
{
    std::vector<double> times;
    for (int run = 0; run < Times(5); ++run) {
        std::optional<Program> program;
        Start(screen, TheProgram, program, "500");
        ToTheMenu(screen);
        times.push_back(Open(screen, Named("log")));
    }
    Print("menu to log of 500 rows, ms", Quantile(times, 0.5));
}

void Tasks(Screen &screen)
{
    std::optional<Program> program;
    Start(screen, TheProgram, program);
    ToTheMenu(screen);
    for (const char *name : {"exercise 6", "exercise 7"}) {
        Open(screen, Named(name));
        std::vector<double> times;
        for (int task = 0; task < Times(15); ++task) {
            // The highest level shows twelve figures.
            times.push_back(Timed(screen, name, [&] { screen.KeyDown(XK_F5); }));
            screen.KeyUp(XK_F5);
        }
        Print(std::string(name) + ", next task of twelve figures, ms", Quantile(times, 0.5));
        Leave(screen, Named(name));
    }
}

// The light under the pointer, and the light that a key moves.
void Lights(Screen &screen, const Player &player)
{
    for (const bool keys : {false, true}) {
        player.Is(keys ? 3 : 0);
        std::optional<Program> program;
        Start(screen, TheProgram, program);
        ToTheMenu(screen);
        std::vector<double> times;
        for (int press = 0; press < Times(100); ++press) {
            if (keys) {
                screen.KeyDown(XK_Right);
                screen.WaitUntilQuiet(20ms);
            }
            screen.Begin();
            const auto start = Clock::now();
            if (keys) {
                screen.KeyUp(XK_Right);
            } else {
                const auto [x, y] = Item(screen, press % 2 == 0 ? 1200 : 3600, 1680);
                screen.Move(x, y);
            }
            if (screen.FirstPainting(500ms) <= start)
                Fail("no light");
            times.push_back(Milliseconds(screen.LastPixel(30ms) - start));
        }
        const std::string what = keys ? "key to light" : "pointer to light";
        Print(what + ", median, ms", Quantile(times, 0.5));
        Print(what + ", 99th percentile, ms", Quantile(times, 0.99));
    }
    player.Is(0);
}

// How late the steps of the automatic scanning come, against their own grid.
void Steps(Screen &screen, const Player &player)
{
    constexpr double Interval = 500; // ms
    player.Is(2);
    std::optional<Program> program;
    Start(screen, TheProgram, program);
    ToTheMenu(screen);
    std::vector<double> times;
    for (int step = 0; step < Times(40) + 1; ++step) {
        screen.Begin();
        times.push_back(Milliseconds(screen.FirstPainting(2s).time_since_epoch()));
        screen.WaitUntilQuiet(30ms);
    }
    std::vector<double> late;
    for (size_t step = 1; step < times.size(); ++step)
        late.push_back(std::abs(times[step] - times[0] - static_cast<double>(step) * Interval));
    Print("scanning step off its grid, median, ms", Quantile(late, 0.5));
    Print("  99th percentile, ms", Quantile(late, 0.99));
    player.Is(0);
}

int Count(const std::string &files)
{
    const std::filesystem::directory_iterator all(files);
    return static_cast<int>(std::distance(begin(all), end(all)));
}

void Rewards(Screen &screen)
{
    constexpr auto Slice = 250ms;
    for (int number = 1; number <= (smoke ? 1 : Count(folder + "animazioni")); ++number) {
        screen.WaitUntilQuiet(Quiet);
        screen.Begin();
        Program program({folder + "bench_reward_window", std::to_string(number)});
        if (screen.FirstPainting(10s) == Clock::time_point())
            Fail("no reward");
        // The start is not the reward's own.
        std::this_thread::sleep_for(smoke ? 100ms : 500ms);
        const double begin = program.ProcessorTime();
        const auto start = Clock::now();
        double last = begin;
        auto then = start;
        double worst = 0;
        for (int slice = 0; slice < Times(16); ++slice) {
            std::this_thread::sleep_for(Slice);
            const double now = program.ProcessorTime();
            const auto time = Clock::now();
            worst = std::max(worst, (now - last) / Milliseconds(time - then) * 100);
            last = now;
            then = time;
        }
        const std::string what = "reward " + std::to_string(number) + ", % of a core";
        Print(what, (last - begin) / Milliseconds(then - start) * 100);
        Print("  its worst quarter of a second", worst);
    }
}

// Processor time of a program that nobody touches. By keys it pulls the keyboard to itself.
void Idle(Screen &screen, const Player &player)
{
    for (const int mode : {0, 1, 3}) {
        const int seconds = mode == 0 ? 20 : 10;
        player.Is(mode);
        std::optional<Program> program;
        Start(screen, TheProgram, program);
        const auto rest = [&](const std::string &window) {
            std::this_thread::sleep_for(smoke ? 0ms : 1000ms);
            const double before = program->ProcessorTime();
            std::this_thread::sleep_for(smoke ? 100ms : std::chrono::seconds(seconds));
            Print("idle for " + std::to_string(seconds) + " s, " + window +
                      (mode == 0   ? ", ms"
                       : mode == 1 ? " by two keys, ms"
                                   : " by arrow keys, ms"),
                  program->ProcessorTime() - before);
        };
        if (mode == 0)
            rest("splash");
        ToTheMenu(screen);
        rest("menu");
        for (const Window &window : windows) {
            if (mode != 0 && &window != &Named("exercise 1"))
                continue;
            if (mode == 0)
                Open(screen, window);
            else // the first item is lit
                Timed(screen, window.Name, [&] {
                    screen.KeyDown(XK_Return);
                    screen.KeyUp(XK_Return);
                });
            rest(window.Name);
            Leave(screen, window);
        }
    }
    player.Is(0);
}

void ManyPlayers(Screen &screen, const Player &player)
{
    player.Others(smoke ? 10 : 5000);
    std::vector<double> times;
    for (int run = 0; run < Times(5); ++run) {
        std::optional<Program> program;
        Start(screen, TheProgram, program);
        times.push_back(ToTheMenu(screen));
    }
    player.OthersGo();
    Print("splash to menu with 5000 players, ms", Quantile(times, 0.5));
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 3)
        return 2;
    std::vector<std::string> chosen(argv + 3, argv + argc);
    smoke = std::erase(chosen, "--smoke") > 0;
    folder = std::filesystem::read_symlink("/proc/self/exe").parent_path().string() + "/";
    Screen screen(argv[1]);
    const Player player(argv[2]);
    const std::vector<std::pair<std::string, std::function<void()>>> sections = {
        {"starts", [&] { Starts(screen); }},
        {"tours", [&] { Tours(screen); }},
        {"log", [&] { LongLog(screen); }},
        {"tasks", [&] { Tasks(screen); }},
        {"lights", [&] { Lights(screen, player); }},
        {"steps", [&] { Steps(screen, player); }},
        {"rewards", [&] { Rewards(screen); }},
        {"idle", [&] { Idle(screen, player); }},
        {"players", [&] { ManyPlayers(screen, player); }},
    };
    for (const auto &[name, measure] : sections)
        if (chosen.empty() || std::find(chosen.begin(), chosen.end(), name) != chosen.end())
            measure();
    return 0;
}
