#include "support/sentence_reader.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include <algorithm>

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

// What a clause says: that a part has a state, or has it not.
struct Claim {
    QString Part;
    QString State;
    bool Denied = false;
};

Claim Read(const QString &clause)
{
    static const QRegularExpression betweenWords(QStringLiteral("[^\\w]+"));
    static const QStringList parts = QStringLiteral("comignolo tetto pareti finestre porta gradino "
                                                    "fumo nuvole")
                                         .split(QLatin1Char(' '));
    const QStringList words = clause.split(betweenWords, Qt::SkipEmptyParts);
    for (const QString &word : words) {
        if (!parts.contains(word))
            continue;
        const bool hideable = parts.indexOf(word) >= 6;
        const Claim claim{word, hideable ? QStringLiteral("1") : ColourOf(words.last()),
                          words.contains(QStringLiteral("non"))};
        if (!claim.State.isEmpty())
            return claim;
    }
    QTest::qFail(qPrintable(QStringLiteral("cannot read: ") + clause), __FILE__, __LINE__);
    return {};
}

// The claims of a sentence that is one clause or two joined by "and". Each sentence is read once.
const QList<Claim> &ClaimsOf(const QString &sentence)
{
    static QHash<QString, QList<Claim>> known;
    auto &claims = known[sentence];
    if (claims.isEmpty()) {
        QString text = sentence.toLower();
        if (text.endsWith(QLatin1Char('.')))
            text.chop(1);
        text.remove(QLatin1Char(','));
        for (const QString &clause : text.split(QStringLiteral(" e ")))
            claims << Read(clause);
    }
    return claims;
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

bool SentenceIsTrue(const QString &sentence, const QMap<QString, QString> &parts)
{
    const QList<Claim> &claims = ClaimsOf(sentence);
    return std::all_of(claims.begin(), claims.end(), [&](const Claim &claim) {
        return (parts.value(claim.Part) == claim.State) != claim.Denied;
    });
}

bool SentenceIsTrue(const QString &sentence, const QString &figure)
{
    return SentenceIsTrue(sentence, PartsOf(figure));
}
