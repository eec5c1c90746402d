// The captions of buttons, in each language, lettering and window: whole, in letters that can be
// read, and clear of the button's edge. With SHOW_SIZES in the environment the smallest are
// printed.
#include "core/palette.h"
#include "exercises/form_es1.h"
#include "exercises/form_es2.h"
#include "platform/controls/button.h"
#include "printing/print_fields.h"
#include "printing/stampa_fpb.h"
#include "support/language_file.h"
#include "support/registered_tests.h"
#include "support/speaking_player.h"
#include "support/windows.h"

#include <QColor>
#include <QFontDatabase>
#include <QImage>
#include <QTest>

#include <algorithm>
#include <cstdio>

using namespace platform;

namespace {

constexpr int Clear = 4; // pixels between the letters and the edge, the outline among them
constexpr double SmallestAnswer = 14; // points; a child reads it

const QList<ScreenSize> Screens = {{1024, 768}, {1366, 768}};
const QStringList Letterings = {QStringLiteral("maiuscolo"), QStringLiteral("corsivo")};

class Pupil : public SpeakingPlayer {
public:
    Pupil(const QString &language, const QString &lettering, const ScreenSize &screen)
        : SpeakingPlayer(language)
    {
        PreparaColoriWeb();
        Host.ScreenSizeNow = screen;
        Host.Seed(4711);
        TipoCarattere = lettering;
        FontCorrente = lettering == QStringLiteral("corsivo") ? QStringLiteral("Indis1")
                                                              : QStringLiteral("arial");
        NumeroEserciziEseguiti = 1;
    }
};

// The rectangle round all that is drawn in the colour of the letters.
QRect LettersOf(const Button &button)
{
    const QImage seen = button.Widget()->grab().toImage();
    QRect ink;
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x) {
            const QColor color = seen.pixelColor(x, y);
            if (color.red() > color.green() + 60 && color.blue() > color.green() + 60)
                ink |= QRect(x, y, 1, 1);
        }
    return ink;
}

} // namespace

class TestCaptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(QFontDatabase::addApplicationFont(QStringLiteral(APPLICATION_DIR "/indis1.ttf")) >=
                0);
    }

    void noCaptionTouchesTheEdgeOfItsButton_data() { RowsOfLanguages(); }
    void noCaptionTouchesTheEdgeOfItsButton()
    {
        QFETCH(QString, name);
        for (const QString &lettering : Letterings)
            for (const ScreenSize &screen : Screens)
                for (const QString &window : WindowNames()) {
                    Judge(LanguageOf(name), lettering, screen, window);
                    if (QTest::currentTestFailed())
                        return;
                }
    }

    void theAnswersOfOneExerciseAreDrawnInOneSize_data() { RowsOfLanguages(); }
    void theAnswersOfOneExerciseAreDrawnInOneSize()
    {
        QFETCH(QString, name);
        for (const QString &lettering : Letterings)
            for (const ScreenSize &screen : Screens) {
                JudgeAnswers<FormEs1>(LanguageOf(name), lettering, screen);
                JudgeAnswers<FormEs2>(LanguageOf(name), lettering, screen);
                if (QTest::currentTestFailed())
                    return;
            }
    }

private:
    static void Judge(const QString &language, const QString &lettering, const ScreenSize &screen,
                      const QString &window)
    {
        Pupil player(language, lettering, screen);
        const QString where =
            QStringLiteral("%1 %2 %3 ").arg(language, lettering).arg(screen.Width);
        auto *form = window == QStringLiteral("frmStampa") ? new Form("Finestra", 6000, 4500)
                                                           : MakeWindow(window).release();
        form->Show();
        QCoreApplication::processEvents();
        if (window == QStringLiteral("frmStampa")) {
            AzzeraStampa();
            player.Host.ExpectModal([&](Form &shown) {
                Judge(shown, where);
                shown.Unload();
            });
            StampaFPB({.Oggetto = form, .X = 10, .Y = 10, .W = 100, .H = 100, .Orientamento = 1});
            AzzeraStampa();
        } else {
            Judge(*form, where);
        }
        DropForms();
    }

    template <typename Window>
    static void JudgeAnswers(const QString &language, const QString &lettering,
                             const ScreenSize &screen)
    {
        Pupil player(language, lettering, screen);
        const auto &form = player.Open<Window>();
        const Button &one = form.Command1(0);
        const Button &other = form.Command1(1);
        QVERIFY(one.Caption() != other.Caption());
        QVERIFY2(one.Drawn().Points == other.Drawn().Points,
                 qPrintable(QStringLiteral("%1 %2 %3: \"%4\" %5, \"%6\" %7")
                                .arg(language, lettering)
                                .arg(screen.Width)
                                .arg(one.Caption())
                                .arg(one.Drawn().Points)
                                .arg(other.Caption())
                                .arg(other.Drawn().Points)));
        QVERIFY2(one.Drawn().Points >= SmallestAnswer,
                 qPrintable(QStringLiteral("%1 %2 %3: \"%4\" %5")
                                .arg(language, lettering)
                                .arg(screen.Width)
                                .arg(one.Caption())
                                .arg(one.Drawn().Points)));
        DropForms();
    }

    static void Judge(const Form &form, const QString &where)
    {
        for (Control *control : form.Controls()) {
            auto *button = dynamic_cast<Button *>(control);
            if (button == nullptr || button->Caption().isEmpty())
                continue;
            button->SetBackColor(Rgb(0xFF, 0xFF, 0xFF));
            button->SetForeColor(Rgb(0xFF, 0, 0xFF));
            const QSize size = button->Widget()->size();
            const QRect letters = LettersOf(*button);
            const DrawnText drawn = button->Drawn();
            const int clear =
                std::min({letters.left(), letters.top(), size.width() - 1 - letters.right(),
                          size.height() - 1 - letters.bottom()});
            const QString what =
                where + QStringLiteral("%1.%2 %3x%4: \"%5\", %6 points, %7 pixels clear")
                            .arg(form.Name(), button->Key())
                            .arg(size.width())
                            .arg(size.height())
                            .arg(button->Caption())
                            .arg(drawn.Points)
                            .arg(clear);
            if (qEnvironmentVariableIsSet("SHOW_SIZES"))
                std::printf("%s\n", qPrintable(what));
            QVERIFY2(!letters.isEmpty(), qPrintable(what));
            QVERIFY2(drawn.Whole, qPrintable(what));
            QVERIFY2(clear >= Clear, qPrintable(what));
        }
    }
};

MORLENE_TEST(TestCaptions)
#include "test_captions.moc"
