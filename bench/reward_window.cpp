// One reward in the place that a figure has in an exercise, played once.
//
//     bench_reward_window NUMBER
#include "platform/controls/form.h"
#include "platform/controls/movie_control.h"
#include "platform/files/files.h"
#include "platform/machine/application.h"
#include "platform/machine/machine_host.h"

namespace {

// As the window of the first exercise has it, twips.
constexpr double FullWidth = 7935;
constexpr double FullHeight = 6075;
constexpr platform::Place Figure = {120, 120, 4215, 5295};

class RewardWindow : public platform::Form {
public:
    explicit RewardWindow(const QString &number)
        : Form("RewardWindow", FullWidth, FullHeight), Movie({*this, "Movie"}, Figure)
    {
        OnResize = [this] {
            Movie.SetLeft(Figure.Left * ScaleWidth() / FullWidth);
            Movie.SetTop(Figure.Top * ScaleHeight() / FullHeight);
            Movie.SetWidth(Figure.Width * ScaleWidth() / FullWidth);
            Movie.SetHeight(Figure.Height * ScaleHeight() / FullHeight);
        };
        OnActivate = [this, number] {
            Movie.SetMovie(platform::AppPath() + QStringLiteral("\\animazioni\\") + number +
                           QStringLiteral(".swf"));
        };
    }
    platform::MovieControl Movie;
};

} // namespace

int main(int argc, char **argv)
{
    platform::MachineHost machine(QStringLiteral(MORLENE_BENCH_DRIVE));
    platform::SetHost(&machine);
    platform::Application application(argc, argv);
    const QString number = argc > 1 ? QString::fromLatin1(argv[1]) : QStringLiteral("1");
    return application.Run([&] { (new RewardWindow(number))->Show(); });
}
