#include "support/sentence_reader.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTest>

namespace {

// The four colours of a new player in every gender and number.
QString ColourOf(const QString &word)
{
    static const QMap<QString, QString> colours = {
        {QStringLiteral("verde"), QStringLiteral("00FF00")},
        {QStringLiteral("verdi"), QStringLiteral("00FF00")},
        {QStringLiteral("rosso"), QStringLiteral("FF0000")},
        {QStringLiteral("rossi"), QStringLiteral("FF0000")},
        {QStringLiteral("rossa"), QStringLiteral("FF0000")},
        {QStringLiteral("rosse"), QStringLiteral("FF0000")},
        {QStringLiteral("blu"), QStringLiteral("0000FF")},
        {QStringLiteral("giallo"), QStringLiteral("FFFF00")},
        {QStringLiteral("gialli"), QStringLiteral("FFFF00")},
        {QStringLiteral("gialla"), QStringLiteral("FFFF00")},
        {QStringLiteral("gialle"), QStringLiteral("FFFF00")},
    };
    return colours.value(word);
}

bool ClauseIsTrue(const QString &clause, const QMap<QString, QString> &parts)
{
    static const QRegularExpression betweenWords(QStringLiteral("[^\\w]+"));
    const QStringList words = clause.split(betweenWords, Qt::SkipEmptyParts);
    const bool denied = words.contains(QStringLiteral("non"));
    for (const QString &word : words) {
        if (!parts.contains(word))
            continue;
        if (word == QStringLiteral("fumo") || word == QStringLiteral("nuvole"))
            return (parts.value(word) == QStringLiteral("1")) != denied;
        const QString colour = ColourOf(words.last());
        if (colour.isEmpty())
            break;
        return (parts.value(word) == colour) != denied;
    }
    QTest::qFail(qPrintable(QStringLiteral("cannot read: ") + clause), __FILE__, __LINE__);
    return false;
}

} // namespace

QMap<QString, QString> PartsOf(const QString &figure)
{
    QMap<QString, QString> parts;
    for (const QString &entry : figure.split(QStringLiteral(", ")))
        parts.insert(entry.section(QLatin1Char(' '), 0, 0), entry.section(QLatin1Char(' '), 1));
    return parts;
}

bool IsPainted(const QString &figure)
{
    static const QRegularExpression painted(
        QStringLiteral("^(\\w+ (00FF00|FF0000|0000FF|FFFF00), ){6}"));
    return painted.match(figure).hasMatch();
}

bool SentenceIsTrue(const QString &sentence, const QString &figure)
{
    QString text = sentence.toLower();
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    text.remove(QLatin1Char(','));
    const QMap<QString, QString> parts = PartsOf(figure);
    bool all = true;
    for (const QString &clause : text.split(QStringLiteral(" e ")))
        all = ClauseIsTrue(clause, parts) && all;
    return all;
}
