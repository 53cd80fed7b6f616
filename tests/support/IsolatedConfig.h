#pragma once

#include <QTemporaryDir>

namespace Zorvane::Testing {

// Points the user's configuration folder at a new temporary one for the life
// of the object, so that a test neither touches the real settings nor sees
// another test process's.
class IsolatedConfig
{
public:
    IsolatedConfig() { qputenv("XDG_CONFIG_HOME", m_dir.path().toUtf8()); }
    ~IsolatedConfig() { qunsetenv("XDG_CONFIG_HOME"); }
    IsolatedConfig(const IsolatedConfig&) = delete;
    IsolatedConfig& operator=(const IsolatedConfig&) = delete;

private:
    QTemporaryDir m_dir;
};

} // namespace Zorvane::Testing
