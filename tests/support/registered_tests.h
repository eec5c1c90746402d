// The tests of a folder are one program: each class names itself here, under the name of its file.
//
//     build/dev/tests/exercises                            all of them
//     build/dev/tests/exercises test_form_es1              one class
//     build/dev/tests/exercises test_form_es1 aWrongAnswerKeepsTheTask
#pragma once

#include <QStringList>

// `run` makes the class and gives the number of failures; `arguments` are the test library's.
using TestRun = int (*)(const QStringList &arguments);
bool RegisterTest(const char *file, TestRun run);

#define MORLENE_TEST(TestClass)                                                                    \
    static const bool Registered##TestClass =                                                      \
        RegisterTest(__FILE__, [](const QStringList &arguments) {                                  \
            TestClass test;                                                                        \
            return QTest::qExec(&test, arguments);                                                 \
        });
