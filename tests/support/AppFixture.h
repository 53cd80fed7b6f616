#pragma once

// The application with its window as the page and shell suites drive it: a
// configuration folder of its own, the file picker answered and the reveal
// watched by the test, the mouse and keys of WindowDriver.h.

#include "platform/FileManager.h"
#include "platform/FilePicker.h"
#include "shell/App.h"
#include "shell/MainWindow.h"
#include "support/IsolatedConfig.h"
#include "support/Testing.h"
#include "support/WindowDriver.h"

namespace Zorvane::Testing {

class AppFixture
{
public:
    IsolatedConfig config;
    QTemporaryDir dir;
    std::unique_ptr<App> app;
    QQuickWindow* window = nullptr;
    QList<FilePickRequest> requests;  ///< what the picker was asked
    std::optional<QByteArray> answer; ///< what it answers; nothing is a cancel
    QList<QList<QByteArray>> reveals; ///< what the file manager was asked to show

    // Starts the program's window in the wide layout that the suites expect.
    bool start()
    {
        SetFilePickHandler([this](QWindow*, const FilePickRequest& request, FilePickDone done) {
            requests << request;
            done(answer);
        });
        FileManager::SetRevealHandler([this](const QList<QByteArray>& paths) { reveals << paths; });
        app = std::make_unique<App>();
        app->OnLaunched();
        window = app->Window()->Window();
        if (!QTest::qWaitForWindowExposed(window)) {
            return false;
        }
        window->resize(1100, 720);
        return QTest::qWaitFor([this] { return page() != nullptr; });
    }

    ~AppFixture()
    {
        SetFilePickHandler({});
        FileManager::SetRevealHandler({});
    }

    QByteArray path(const QString& name) const { return QFile::encodeName(dir.filePath(name)); }
    QQuickItem* page() const { return currentPage(window); }
    // A control of the page shown. One that is missing fails the test, and
    // a stand-in is returned so that the test ends without a crash.
    QQuickItem* control(const QString& name) const
    {
        QQuickItem* found = findItem(page(), name);
        if (found == nullptr) {
            QTest::qFail(qPrintable(u"no control "_s + name), __FILE__, __LINE__);
            return m_missing.get();
        }
        return found;
    }
    QQuickItem* control(const char* name) const { return control(QString::fromLatin1(name)); }
    QString text(const QString& name) const { return control(name)->property("text").toString(); }

    // Opens the entry with a new page and waits until the control has the focus.
    bool open(int entry, const QString& focused)
    {
        openFresh(window, entry);
        return QTest::qWaitFor([&] {
            QQuickItem* item = page() != nullptr ? findItem(page(), focused) : nullptr;
            return item != nullptr && item->hasActiveFocus();
        });
    }

    void click(QQuickItem* item) const { clickItem(window, item); }
    void type(QQuickItem* item, const QString& text) const
    {
        click(item);
        typeText(window, text);
    }

    // The page's states while the action runs, until done() holds or,
    // without it, until the page is back in "Normal".
    QStringList statesDuring(const std::function<void()>& action,
                             std::function<bool()> done = {}) const
    {
        QStringList states;
        const auto connection = QObject::connect(page(), &QQuickItem::stateChanged,
                                                 [&](const QString& state) { states << state; });
        if (!done) {
            done = [&] {
                return states.contains(u"Normal"_s);
            };
        }
        action();
        if (!QTest::qWaitFor(done, 120000)) {
            states << QStringLiteral("(timed out)");
        }
        QObject::disconnect(connection);
        return states;
    }

private:
    std::unique_ptr<QQuickItem> m_missing = std::make_unique<QQuickItem>();
};

} // namespace Zorvane::Testing
