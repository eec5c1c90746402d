// How fast the windows are, each to its last pixel on the screen, beside an empty full-screen
// window in the same run; and what they cost while nobody does anything.
//
//     bench_windows                all of it
//     bench_windows empty|program  one measured process, started by the first form
#include "exercises/form_es1.h"
#include "measure.h"
#include "platform/application.h"

#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <sys/resource.h>
#include <vector>

namespace {

constexpr int Runs = 11;        // processes of each kind
constexpr int Tasks = 200;      // next tasks measured
constexpr int IdleSeconds = 20; // of each window

double Resident() // megabytes
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').at(1).toDouble() * 4096 / 1e6;
}

double ProcessorSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

void Idle(const char *window)
{
    const double before = ProcessorSeconds();
    QEventLoop loop;
    QTimer::singleShot(IdleSeconds * 1000, &loop, &QEventLoop::quit);
    loop.exec();
    std::printf("idle %s %.3f %.1f\n", window, (ProcessorSeconds() - before) / IdleSeconds * 100,
                Resident());
}

void MeasureProgram(bool whole)
{
    Paint();
    std::printf("splash %.3f\n", Now());
    if (!whole)
        return;
    Idle("splash");

    double start = Now();
    Shown<FormAvvio>("FormAvvio").Command1.OnClick();
    Paint();
    std::printf("menu %.3f\n", Now() - start);
    Idle("menu");

    start = Now();
    Shown<FormMenu>("FormMenu").Command1.OnClick(0);
    Paint();
    std::printf("exercise %.3f\n", Now() - start);
    Idle("exercise");

    auto &exercise = Shown<FormEs1>("FormEs1");
    std::vector<double> tasks;
    for (int task = 0; task < Tasks; ++task) {
        exercise.Command1.OnClick(exercise.IndiceEsatto);
        Paint();
        start = Now();
        exercise.Command1.OnClick(2);
        Paint();
        tasks.push_back(Now() - start);
    }
    std::printf("task %.3f %.3f\n", Quantile(tasks, 0.5), Quantile(tasks, 0.99));
}

int Child(int argc, char **argv, const QString &kind)
{
    const QTemporaryDir drive;
    BenchHost machine(drive.path() + QLatin1Char('/'));
    platform::SetHost(&machine);
    platform::Application application(argc, argv);
    if (kind == QStringLiteral("empty")) {
        QWidget window;
        window.showFullScreen();
        Paint();
        std::printf("splash %.3f\n", Now());
        std::printf("memory %.1f\n", Resident());
        return 0;
    }
    RegistraFinestre();
    Main();
    MeasureProgram(kind == QStringLiteral("program"));
    return 0;
}

QByteArray Run(const QString &kind, double &started)
{
    QProcess process;
    started = Now();
    process.start(QCoreApplication::applicationFilePath(), {kind});
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

double StartTime(const QString &kind)
{
    std::vector<double> times;
    for (int run = 0; run < Runs; ++run) {
        double started = 0;
        const QByteArray told = Run(kind, started);
        times.push_back(told.split('\n').first().split(' ').at(1).toDouble() - started);
    }
    return Quantile(times, 0.5);
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1)
        return Child(argc, argv, QString::fromLatin1(argv[1]));
    const QCoreApplication application(argc, argv);
    std::printf("start to the first window painted, median of %d, ms\n", Runs);
    std::printf("  empty window %.1f\n", StartTime(QStringLiteral("empty")));
    std::printf("  splash       %.1f\n", StartTime(QStringLiteral("start")));
    double started = 0;
    std::printf("memory of the empty window, MB\n  %s",
                Run(QStringLiteral("empty"), started).split('\n').at(1).constData());
    const QByteArray told = Run(QStringLiteral("program"), started);
    std::printf(
        "\nwindow to window, ms to the last pixel; next task: median and 99th percentile of "
        "%d, ms; idle: processor %% over %d s, memory MB\n%s",
        Tasks, IdleSeconds, told.mid(told.indexOf('\n') + 1).constData());
    return 0;
}
