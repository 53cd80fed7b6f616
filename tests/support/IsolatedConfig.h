#pragma once

#include "platform/Package.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace Zorvane::Testing {

// Points the user's configuration folder at a new temporary one for the life
// of the object, so that a test neither touches the real settings nor sees
// another test process's.
class IsolatedConfig
{
public:
    IsolatedConfig() { isolate(true); }
    ~IsolatedConfig() { isolate(false); }
    IsolatedConfig(const IsolatedConfig&) = delete;
    IsolatedConfig& operator=(const IsolatedConfig&) = delete;

private:
    // No variable moves the user's local application data, where Windows
    // keeps the settings: the toolkit's test mode gives them a folder of their
    // own, emptied here. The suites that keep settings take turns
    // (tests/CMakeLists.txt), and their children enter it too (testMain).
    void isolate([[maybe_unused]] bool start)
    {
#ifdef Q_OS_WIN
        QStandardPaths::setTestModeEnabled(true);
        QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
            .removeRecursively();
#else
        start ? qputenv("XDG_CONFIG_HOME", m_dir.path().toUtf8()) : qunsetenv("XDG_CONFIG_HOME");
#endif
    }

    QTemporaryDir m_dir;
};

// The package manifest beside this program, as the installer leaves it, for
// the life of the object. The suites that write it take turns.
class InstalledManifest
{
public:
    explicit InstalledManifest(const QByteArray& content)
    {
        QDir().mkpath(QFileInfo(path()).path());
        QFile manifest(path());
        if (!manifest.open(QIODevice::WriteOnly) || manifest.write(content) != content.size()) {
            qFatal("cannot write the package manifest");
        }
    }
    ~InstalledManifest()
    {
        QFile::remove(path());
        QDir().rmpath(QFileInfo(path()).path());
    }
    InstalledManifest(const InstalledManifest&) = delete;
    InstalledManifest& operator=(const InstalledManifest&) = delete;

private:
    static QString path()
    {
        return QDir(QCoreApplication::applicationDirPath()).filePath(Package::ManifestRelativePath);
    }
};

} // namespace Zorvane::Testing
