// All sentences that the exercises write, in each shipped language, as they were read line by line.
// Those of "Vero o falso" stand beside the sentences of the frame.
#include "exercises/form_es2.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "exercises/form_es6.h"
#include "exercises/form_es7.h"
#include "support/expected_text.h"
#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/speaking_player.h"

#include <QSet>
#include <QTest>

namespace {

QStringList Sorted(const QSet<QString> &seen)
{
    QStringList sorted(seen.cbegin(), seen.cend());
    sorted.sort();
    return sorted;
}

QStringList Lines(const QString &text)
{
    return text.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
}

// What was seen in `tasks` tasks of each level.
template <typename Window, typename See>
QStringList SeenOnLevels(const QString &language, int levels, int tasks, See see)
{
    SpeakingPlayer player(language);
    player.Host.Seed(77);
    auto &form = player.Open<Window>();
    form.LockDrawing(true);
    QStringList lines;
    for (int level = 1; level <= levels; ++level) {
        QSet<QString> seen;
        for (int task = 0; task < tasks; ++task) {
            ChooseLevel(form, level);
            NumeroEserciziEseguiti = 1;
            see(form, level, seen);
            player.Host.TakeEvents();
        }
        lines << QStringLiteral("level %1").arg(level) << Sorted(seen);
    }
    return lines;
}

void CompareWithRead(const QString &language, const QString &exercise, const QStringList &lines)
{
    CompareWithExpected(QStringLiteral("sentences/%1/%2.txt").arg(language, exercise), lines);
}

} // namespace

class TestReadSentences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void unfinishedSentencesAndTheirAnswers_data() { RowsOfLanguages(); }
    void unfinishedSentencesAndTheirAnswers()
    {
        QFETCH(QString, name);
        const auto see = [](FormEs2 &form, int, QSet<QString> &seen) {
            for (const int answer : {0, 1})
                seen << form.Label1.Caption() + Messaggi(0) + form.Command1(answer).Caption();
        };
        CompareWithRead(LanguageOf(name), QStringLiteral("es2"),
                        SeenOnLevels<FormEs2>(LanguageOf(name), 3, 600, see));
    }

    void descriptionsToPaintBy_data() { RowsOfLanguages(); }
    void descriptionsToPaintBy()
    {
        QFETCH(QString, name);
        const auto see = [](FormEs4 &form, int, QSet<QString> &seen) {
            for (const QString &sentence : Lines(form.Text1.Text()))
                seen << sentence;
        };
        CompareWithRead(LanguageOf(name), QStringLiteral("es4"),
                        SeenOnLevels<FormEs4>(LanguageOf(name), 6, 400, see));
    }

    void rulesToSortBy_data() { RowsOfLanguages(); }
    void rulesToSortBy()
    {
        QFETCH(QString, name);
        // What opens the sentence, and what joins the second clause to the first, apart.
        const auto see = [](FormEs5 &form, int level, QSet<QString> &seen) {
            const QString text = form.Label1.Caption();
            const QString joint = level == 2   ? Messaggi(14)
                                  : level == 3 ? Messaggi(32) + Messaggi(33)
                                               : Messaggi(32);
            const auto at = level == 1 ? -1 : text.indexOf(joint, 0, Qt::CaseInsensitive);
            if (at < 0) {
                // Above level 1 the required oddities leave the first clause alone.
                seen << (level == 1 ? text : QStringLiteral("(the first clause alone)"));
            } else {
                seen << text.left(at) + QStringLiteral(" ...");
                seen << QStringLiteral("...") + text.mid(at);
            }
        };
        CompareWithRead(LanguageOf(name), QStringLiteral("es5"),
                        SeenOnLevels<FormEs5>(LanguageOf(name), 4, 6000, see));
    }

    void descriptionsToSearchBy_data() { RowsOfLanguages(); }
    void descriptionsToSearchBy()
    {
        QFETCH(QString, name);
        QStringList lines;
        for (const int exercise : {6, 7}) {
            SpeakingPlayer player(LanguageOf(name));
            player.Host.Seed(80);
            GrigliaFigure *form = nullptr;
            if (exercise == 6)
                form = &player.Open<FormEs6>();
            else
                form = &player.Open<FormEs7>();
            form->LockDrawing(true);
            QSet<QString> seen;
            for (int task = 0; task < 200; ++task) {
                ChooseLevel(*form, 1);
                NumeroEserciziEseguiti = 1;
                for (const QString &line : Lines(form->Text1.Text()))
                    seen << line;
                player.Host.TakeEvents();
            }
            lines << QStringLiteral("exercise %1").arg(exercise) << form->Label1.Caption()
                  << Sorted(seen);
        }
        CompareWithRead(LanguageOf(name), QStringLiteral("es6_es7"), lines);
    }
};

MORLENE_TEST(TestReadSentences)
#include "test_read_sentences.moc"
