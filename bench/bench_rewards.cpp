// What the reward movies cost: each is played once through as the window plays it, 25 frames a
// second, and every frame is painted. Processor time of this thread, so that other programs do not
// count.
//
//     bench_rewards [width height]   in pixels; 700 by 900 when left out
#include "platform/application.h"
#include "platform/files.h"
#include "platform/machine_host.h"
#include "platform/movies/movie_reader.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <numeric>
#include <vector>

namespace {

constexpr int FrameMilliseconds = 40;
constexpr int Runs = 5; // of which each frame's cheapest counts

double ProcessorMilliseconds()
{
    timespec time = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

double Quantile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values.at(static_cast<size_t>(part * static_cast<double>(values.size() - 1)));
}

double Frame(platform::MovieReader &movie, QImage &screen, int milliseconds)
{
    const double start = ProcessorMilliseconds();
    if (movie.Advance(milliseconds) || milliseconds == 0) {
        QPainter painter(&screen);
        movie.Paint(painter, screen.rect());
    }
    return ProcessorMilliseconds() - start;
}

void Measure(const QString &path, QSize size)
{
    std::vector<double> frames;
    int duration = 0;
    bool ended = true;
    for (int run = 0; run < Runs; ++run) {
        const auto movie = platform::OpenMovie(path);
        QImage screen(size, QImage::Format_RGB32);
        screen.fill(Qt::white);
        duration = movie->Duration();
        Frame(*movie, screen, 0);
        size_t number = 0;
        for (int time = FrameMilliseconds; time < duration + FrameMilliseconds;
             time += FrameMilliseconds, ++number) {
            const double cost = Frame(*movie, screen, time);
            if (frames.size() == number)
                frames.push_back(cost);
            else
                frames[number] = std::min(frames[number], cost);
        }
        ended = ended && !movie->Advance(duration + 1000);
    }
    const double mean =
        std::accumulate(frames.begin(), frames.end(), 0.0) / static_cast<double>(frames.size());
    std::printf("%s %6.1f s %8.2f %8.2f %8.2f %7.1f %%   %s\n",
                path.section(u'\\', -1).toUtf8().constData(), duration / 1000.0, mean,
                Quantile(frames, 0.5), Quantile(frames, 0.99), mean * 100 / FrameMilliseconds,
                ended ? "nothing" : "STILL PAINTS");
}

} // namespace

int main(int argc, char **argv)
{
    platform::MachineHost machine(QStringLiteral(MORLENE_DRIVE_ROOT));
    platform::SetHost(&machine);
    const platform::Application application(argc, argv);
    const QSize size = argc > 2 ? QSize(std::atoi(argv[1]), std::atoi(argv[2])) : QSize(700, 900);
    const QString folder = platform::AppPath() + QStringLiteral("\\animazioni\\");
    const int count = platform::CountMovies(folder + QStringLiteral("*.swf"));
    std::printf("%d by %d pixels; ms a frame: mean, median, 99th percentile; share of one core at "
                "25 frames a second; after the end\n",
                size.width(), size.height());
    for (int number = 1; number <= count; ++number)
        Measure(folder + QString::number(number) + QStringLiteral(".swf"), size);
    return 0;
}
