// Start-up of the window, from one run: the time from process start to main(),
// to the window's first frame and to the first frame that shows the first
// page, and the peak resident memory at that frame. The same figures are
// taken for a bare Qt Quick window of the same size, the floor that Qt itself
// sets on this machine, and the last line gives Zorvane's ratios to it. A
// third subject, the bare window with one line of text, shows what the first
// text of any kind costs (font database, glyph cache, text pipeline).
//
// Run without arguments it is the launcher: it starts itself as a child for
// each subject, several times, and reports medians. A child prints its
// CLOCK_MONOTONIC stamps, which the launcher compares with the stamp it took
// just before spawning the child.

#include "shell/App.h"
#include "shell/PageFrame.h"

#include <QApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QtQml/qqmlextensionplugin.h>

#include <fmt/format.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <memory>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

Q_IMPORT_QML_PLUGIN(ZorvanePlugin)

extern char** environ;

namespace {

constexpr int Runs = 9;

std::int64_t monotonic_ns()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t{now.tv_sec} * 1'000'000'000 + now.tv_nsec;
}

// VmHWM: the peak resident set so far, in KiB.
long peak_rss_kib()
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.rfind("VmHWM:", 0) == 0) {
            return std::strtol(line.c_str() + 6, nullptr, 10);
        }
    }
    return -1;
}

// What a child reports; written from the render thread, read on the UI thread.
struct Stamps
{
    std::int64_t main = 0;
    std::int64_t loaded = 0; // the markup created, the window not yet drawn
    std::atomic<std::int64_t> firstFrame{0};
    std::atomic<bool> pageSynced{false};
};

void report_and_quit(const Stamps& stamps, std::int64_t pageFrame)
{
    std::printf("%lld %lld %lld %lld %ld\n", static_cast<long long>(stamps.main),
                static_cast<long long>(stamps.loaded),
                static_cast<long long>(stamps.firstFrame.load()), static_cast<long long>(pageFrame),
                peak_rss_kib());
    std::fflush(stdout);
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

// Zorvane as main.cpp starts it.
int run_zorvane(int argc, char** argv, Stamps& stamps)
{
    Zorvane::App::PrepareProcess();
    QApplication application(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Fusion"));
    Zorvane::App app;
    app.OnLaunched();
    stamps.loaded = monotonic_ns();

    auto* window = qobject_cast<QQuickWindow*>(app.MainWindowHandle());
    auto* frame = window->findChild<Zorvane::PageFrame*>(QStringLiteral("ContentFrame"));
    // Synchronisation runs while the UI thread waits, so the frame may be read
    // there: the frame after a sync that saw a page is the page's first frame.
    QObject::connect(
        window, &QQuickWindow::beforeSynchronizing, window,
        [&] {
            if (frame->Content() != nullptr) {
                stamps.pageSynced = true;
            }
        },
        Qt::DirectConnection);
    bool reported = false;
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window,
        [&] {
            const std::int64_t now = monotonic_ns();
            std::int64_t none = 0;
            stamps.firstFrame.compare_exchange_strong(none, now);
            if (stamps.pageSynced && !reported) {
                reported = true;
                report_and_quit(stamps, now);
            }
        },
        Qt::DirectConnection);
    return QApplication::exec();
}

// The floor: an empty Qt Quick window of the same size and style, as Qt sets
// it up by default. With withText it also holds one line of text, drawn as
// Zorvane draws text.
int run_bare(int argc, char** argv, Stamps& stamps, bool withText)
{
    QApplication application(argc, argv);
    QQuickStyle::setStyle(QStringLiteral("Fusion"));
    QQmlEngine engine;
    QQmlComponent component(&engine);
    if (withText) {
        QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    }
    component.setData(QByteArray("import QtQuick\nimport QtQuick.Controls\n"
                                 "ApplicationWindow { width: 1100; height: 720; visible: true ") +
                          (withText ? "; Text { text: \"Zorvane\" } }" : "}"),
                      QUrl());
    std::unique_ptr<QObject> root(component.create());
    stamps.loaded = monotonic_ns();
    auto* window = qobject_cast<QQuickWindow*>(root.get());
    if (window == nullptr) {
        std::fprintf(stderr, "%s\n", qPrintable(component.errorString()));
        return 1;
    }
    bool reported = false;
    QObject::connect(
        window, &QQuickWindow::frameSwapped, window,
        [&] {
            const std::int64_t now = monotonic_ns();
            if (!reported) {
                reported = true;
                stamps.firstFrame = now;
                report_and_quit(stamps, now);
            }
        },
        Qt::DirectConnection);
    return QApplication::exec();
}

struct Sample
{
    double toMain = 0; // milliseconds from spawn
    double loaded = 0;
    double firstFrame = 0;
    double pageFrame = 0;
    double peakMib = 0;
};

Sample launch(const char* self, const char* subject)
{
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) {
        std::perror("pipe");
        std::exit(1);
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeEnds[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[0]);
    posix_spawn_file_actions_addclose(&actions, pipeEnds[1]);
    std::string selfArg = self;
    std::string childArg = "--child";
    std::string subjectArg = subject;
    char* args[] = {selfArg.data(), childArg.data(), subjectArg.data(), nullptr};

    pid_t pid = 0;
    const std::int64_t spawned = monotonic_ns();
    const int spawnError = posix_spawn(&pid, self, &actions, nullptr, args, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeEnds[1]);
    if (spawnError != 0) {
        std::fprintf(stderr, "spawn: %s\n", std::strerror(spawnError));
        std::exit(1);
    }

    std::string output;
    char buffer[256];
    ssize_t got = 0;
    while ((got = read(pipeEnds[0], buffer, sizeof buffer)) > 0) {
        output.append(buffer, static_cast<std::size_t>(got));
    }
    close(pipeEnds[0]);
    int status = 0;
    waitpid(pid, &status, 0);

    long long mainAt = 0;
    long long loadedAt = 0;
    long long firstAt = 0;
    long long pageAt = 0;
    long peak = 0;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 ||
        std::sscanf(output.c_str(), "%lld %lld %lld %lld %ld", &mainAt, &loadedAt, &firstAt,
                    &pageAt, &peak) != 5) {
        std::fprintf(stderr, "the %s child failed (status %d): %s\n", subject, status,
                     output.c_str());
        std::exit(1);
    }
    const auto ms = [&](long long at) {
        return static_cast<double>(at - spawned) / 1e6;
    };
    return {ms(mainAt), ms(loadedAt), ms(firstAt), ms(pageAt), static_cast<double>(peak) / 1024.0};
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

struct Summary
{
    double toMain, loaded, firstFrame, pageFrame, peakMib;
};

// The subjects' launches interleave, so that a machine that slows down or
// speeds up during the run moves every subject's figures alike.
std::vector<Summary> measure(const char* self, const std::vector<const char*>& subjects)
{
    std::vector<std::vector<Sample>> samples(subjects.size());
    for (const char* subject : subjects) {
        static_cast<void>(launch(self, subject)); // warms the page cache
    }
    for (int run = 0; run < Runs; ++run) {
        for (std::size_t i = 0; i < subjects.size(); ++i) {
            samples[i].push_back(launch(self, subjects[i]));
        }
    }
    std::vector<Summary> summaries;
    for (const std::vector<Sample>& runs : samples) {
        const auto medianOf = [&](double Sample::*field) {
            std::vector<double> values;
            for (const Sample& sample : runs) {
                values.push_back(sample.*field);
            }
            return median(values);
        };
        summaries.push_back({medianOf(&Sample::toMain), medianOf(&Sample::loaded),
                             medianOf(&Sample::firstFrame), medianOf(&Sample::pageFrame),
                             medianOf(&Sample::peakMib)});
    }
    return summaries;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--child") == 0) {
        Stamps stamps;
        stamps.main = monotonic_ns();
        if (std::strncmp(argv[2], "bare", 4) == 0) {
            return run_bare(argc, argv, stamps, std::strcmp(argv[2], "bare-text") == 0);
        }
        return run_zorvane(argc, argv, stamps);
    }

    const std::string self = "/proc/self/exe";
    char resolved[4096] = {};
    if (readlink(self.c_str(), resolved, sizeof resolved - 1) <= 0) {
        std::perror("readlink");
        return 1;
    }
    const std::vector<Summary> measured = measure(resolved, {"bare", "bare-text", "zorvane"});
    const Summary& bare = measured[0];
    const Summary& bareText = measured[1];
    const Summary& zorvane = measured[2];

    fmt::print("medians of {} launches each, interleaved, after one warm-up; milliseconds from "
               "spawn\n",
               Runs);
    fmt::print("{:<26}{:>10}{:>10}{:>14}{:>14}{:>12}\n", "", "to main", "loaded", "first frame",
               "page frame", "peak MiB");
    for (const auto& [name, s] :
         {std::pair{"bare Qt Quick window", bare}, std::pair{"bare window, one text", bareText},
          std::pair{"Zorvane (first page)", zorvane}}) {
        fmt::print("{:<26}{:>10.1f}{:>10.1f}{:>14.1f}{:>14.1f}{:>12.1f}\n", name, s.toMain,
                   s.loaded, s.firstFrame, s.pageFrame, s.peakMib);
    }
    fmt::print("summary: first frame {:.0f} ms, first page {:.0f} ms, peak {:.1f} MiB; "
               "ratios to a bare window: first frame {:.2f}, first page {:.2f}, memory {:.3f}\n",
               zorvane.firstFrame, zorvane.pageFrame, zorvane.peakMib,
               zorvane.firstFrame / bare.firstFrame, zorvane.pageFrame / bare.firstFrame,
               zorvane.peakMib / bare.peakMib);
    fmt::print("ratios to the bare window with one text: first page {:.2f}, memory {:.2f}\n",
               zorvane.pageFrame / bareText.firstFrame, zorvane.peakMib / bareText.peakMib);
    // Where the difference goes: creating the objects (engine, markup, pages)
    // against drawing them (scene graph, shaders, glyphs) for the first time.
    fmt::print("difference: {:+.0f} ms until loaded (main to markup created), {:+.0f} ms drawing "
               "(loaded to first page frame)\n",
               (zorvane.loaded - zorvane.toMain) - (bare.loaded - bare.toMain),
               (zorvane.pageFrame - zorvane.loaded) - (bare.firstFrame - bare.loaded));
    return 0;
}
