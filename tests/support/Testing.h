#pragma once

// What every suite uses: QtTest and the files, folders and processes it works
// with, the project's names, and this test program run again as a child.

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace Zorvane::Testing {

struct ChildRun
{
    bool crashed = false;
    int exitCode = -1;
    QString output; ///< standard output, then standard error, lines ending in LF
};

// This test program started again with the arguments, as a child process
// whose end (a crash, say) cannot take the tests with it.
inline ChildRun runSelf(const QStringList& arguments)
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), arguments);
    if (!child.waitForFinished(60000)) {
        child.kill();
        child.waitForFinished();
        return {false, -1, QStringLiteral("(timed out)")};
    }
    return {child.exitStatus() == QProcess::CrashExit, child.exitCode(),
            QString::fromUtf8(child.readAllStandardOutput() + child.readAllStandardError())
                .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))};
}

using ChildMain = int (*)(int argc, char** argv);

// A suite's main(): with one of the children's options first, that child
// runs instead of the tests.
template <class Test, class Application>
int testMain(int argc, char** argv,
             std::initializer_list<std::pair<std::string_view, ChildMain>> children)
{
    for (const auto& [option, child] : children) {
        if (argc >= 2 && option == argv[1]) {
#ifdef Q_OS_WIN
            QStandardPaths::setTestModeEnabled(true); // the parent's settings (IsolatedConfig.h)
#endif
            return child(argc, argv);
        }
    }
    Application application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace Zorvane::Testing

using namespace Zorvane;
using namespace Zorvane::Testing;
using namespace Qt::StringLiterals;
