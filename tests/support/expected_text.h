// Texts that were read line by line and are kept beside the tests: the program must say those and
// no others.
#pragma once

#include <QFile>
#include <QStringList>
#include <QTest>

// Compares with tests/expected/`name`, whose leading lines that begin with "# " are notes. With
// SHOW_EXPECTED in the environment the lines are printed instead of compared.
inline void CompareWithExpected(const QString &name, const QStringList &made)
{
    if (qEnvironmentVariableIsSet("SHOW_EXPECTED")) {
        for (const QString &line : made)
            std::fputs((line + QLatin1Char('\n')).toUtf8().constData(), stdout);
        return;
    }
    QFile file(QStringLiteral(TESTS_DIR "/expected/") + name);
    QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(name));
    QStringList expected = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    while (!expected.isEmpty() && expected.first().startsWith(QStringLiteral("# ")))
        expected.removeFirst();
    for (qsizetype i = 0; i < std::min(expected.size(), made.size()); ++i)
        QCOMPARE(made.at(i), expected.at(i));
    // The kept text ends with a line break.
    QCOMPARE(made.size(), expected.size() - 1);
}
