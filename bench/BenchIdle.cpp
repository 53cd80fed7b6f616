// What the idle window costs, from one run: the CPU time the process uses and
// the frames it renders over ten seconds in which nothing happens, after each
// of the things that once left it drawing for ever: the first page shown, a
// change of the chosen digests before any file was picked, a finished run
// over a file, a visit to each certificate page. An idle window should render
// no frame and use next to no CPU (under 0.1 s in 10 s). Each step is first
// left to settle for the time after which a text caret stops blinking.

#include "checksums/ChecksumSelection.h"
#include "checksums/OpenSslChecksumsPage.h"
#include "platform/CaretBlink.h"
#include "platform/FilePicker.h"
#include "shell/App.h"
#include "shell/MainWindow.h"
#include "shell/NavigationView.h"
#include "shell/PageFrame.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

#include <fmt/format.h>

#include <ctime>
#include <functional>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

namespace {

constexpr int IdleMilliseconds = 10000;

double process_cpu_seconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

// Lets the event loop run for a while, as a user who does nothing.
void idle(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

bool waitFor(const std::function<bool()>& condition, int milliseconds = 60000)
{
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > milliseconds) {
            return false;
        }
        idle(10);
    }
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    Zorvane::App::PrepareProcess(); // as the program starts
    QApplication application(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Fusion"));
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("data"));
    {
        QFile data(file);
        if (!data.open(QIODevice::WriteOnly) || data.write(QByteArray(1 << 20, 'x')) != (1 << 20)) {
            return 1;
        }
    }
    Zorvane::SetFilePickHandler(
        [file](QWindow*, const Zorvane::FilePickRequest&, Zorvane::FilePickDone done) {
            done(QFile::encodeName(file));
        });

    Zorvane::App app;
    app.OnLaunched();
    QQuickWindow* window = app.Window()->Window();
    auto* nav = window->findChild<Zorvane::NavigationView*>(QStringLiteral("NavView"));
    auto* frame = window->findChild<Zorvane::PageFrame*>(QStringLiteral("ContentFrame"));
    int frames = 0;
    QObject::connect(window, &QQuickWindow::frameSwapped, [&] { ++frames; });
    const auto checksumPage = [&] {
        return qobject_cast<Zorvane::OpenSslChecksumsPage*>(frame->Content());
    };
    const auto normal = [&] {
        return checksumPage()->state() == QStringLiteral("Normal");
    };

    struct Step
    {
        const char* what;
        std::function<void()> act;
    };
    const Step steps[] = {
        {"first page shown",
         [] {
         }},
        {"digest ticked before any file",
         [&] {
             nav->setSelectedItem(nav->MenuItems().at(3));
             waitFor([&] { return checksumPage() != nullptr; });
             Zorvane::ChecksumSelection::SelectAllClick(*checksumPage()->ViewModel());
             waitFor(normal);
         }},
        {"run over a file finished",
         [&] {
             checksumPage()->SelectFileClick();
             waitFor([&] {
                 return !checksumPage()->ViewModel()->HashAlgos()->items().isEmpty() &&
                        checksumPage()->ViewModel()->FileSize() >= 0 && normal();
             });
         }},
        {"request page visited",
         [&] {
             nav->setSelectedItem(nav->MenuItems().at(2));
         }},
        {"self-signed page visited",
         [&] {
             nav->setSelectedItem(nav->MenuItems().at(1));
         }},
    };

    if (!waitFor([&] { return window->isExposed() && frame->Content() != nullptr; })) {
        return 1;
    }
    fmt::print("{:<32} {:>14} {:>8}\n", "idle for 10 s after", "CPU seconds", "frames");
    double worst = 0;
    int worstFrames = 0;
    for (const Step& step : steps) {
        step.act();
        // What may still fade or settle, does; a caret rests as on the desktop.
        idle(Zorvane::CaretBlink::RestAfterMilliseconds + 1000);
        frames = 0;
        const double before = process_cpu_seconds();
        idle(IdleMilliseconds);
        const double used = process_cpu_seconds() - before;
        fmt::print("{:<32} {:>14.3f} {:>8}\n", step.what, used, frames);
        worst = std::max(worst, used);
        worstFrames = std::max(worstFrames, frames);
    }
    fmt::print("summary: worst idle CPU {:.3f} s in 10 s (limit 0.1), worst {} frames (limit 0)\n",
               worst, worstFrames);
    window->close();
    return 0;
}
