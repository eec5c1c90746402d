// The program's own event dispatch stands under every test, so that an error that leaves an event
// reaches `FatalError`.
#include "support/registered_tests.h"

#include "platform/machine/application.h"

#include <QFileInfo>
#include <QMap>

#include <cstdio>

namespace {

QMap<QString, TestRun> &Tests()
{
    static QMap<QString, TestRun> tests;
    return tests;
}

} // namespace

bool RegisterTest(const char *file, TestRun run)
{
    Tests().insert(QFileInfo(QString::fromUtf8(file)).baseName(), run);
    return true;
}

int main(int argc, char **argv)
{
    const platform::Application application(argc, argv);
    QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        int failures = 0;
        for (const TestRun run : std::as_const(Tests()))
            failures += run(arguments);
        return failures > 0 ? 1 : 0;
    }
    const TestRun run = Tests().value(arguments.takeAt(1));
    if (run == nullptr) {
        std::fprintf(stderr, "No such test; there are:\n");
        for (const QString &name : Tests().keys())
            std::fprintf(stderr, "  %s\n", qPrintable(name));
        return 2;
    }
    return run(arguments) > 0 ? 1 : 0;
}
