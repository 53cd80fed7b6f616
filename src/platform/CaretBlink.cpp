#include "platform/CaretBlink.h"

#include <QEvent>
#include <QGuiApplication>
#include <QStyleHints>

namespace Zorvane {

CaretBlink::CaretBlink(QObject* parent, int restAfter)
    : QObject(parent), m_flashTime(QGuiApplication::styleHints()->cursorFlashTime())
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(restAfter);
    connect(&m_rest, &QTimer::timeout, this, &CaretBlink::rest);
    qApp->installEventFilter(this);
    m_rest.start();
}

CaretBlink::~CaretBlink()
{
    wake(); // the application keeps its own setting
}

bool CaretBlink::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::InputMethod:
    case QEvent::FocusIn:
        wake();
        m_rest.start();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void CaretBlink::wake()
{
    if (m_resting) {
        m_resting = false;
        QGuiApplication::styleHints()->setCursorFlashTime(m_flashTime);
    }
}

void CaretBlink::rest()
{
    if (!m_resting && m_flashTime > 0) {
        m_resting = true;
        QGuiApplication::styleHints()->setCursorFlashTime(0); // a steady caret
    }
}

} // namespace Zorvane
