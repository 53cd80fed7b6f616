#pragma once

#include <QObject>
#include <QTimer>

namespace Zorvane {

// The text caret blinks while the user works and rests, steady, once nothing
// has been typed or clicked for a while, as the desktop's own toolkits do
// (GTK after ten seconds): an idle window draws nothing at all.
class CaretBlink : public QObject
{
    Q_OBJECT

public:
    static constexpr int RestAfterMilliseconds = 10000;

    // Watches the application's input from now on; the caret blinks at once.
    explicit CaretBlink(QObject* parent = nullptr, int restAfter = RestAfterMilliseconds);
    ~CaretBlink() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void wake();
    void rest();

    QTimer m_rest;
    int m_flashTime = 0;
    bool m_resting = false;
};

} // namespace Zorvane
