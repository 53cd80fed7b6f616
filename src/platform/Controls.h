#pragma once

#include "platform/HResultError.h"

#include <QMetaProperty>
#include <QQuickItem>
#include <QString>

#include <string>

namespace Zorvane {

// A named control of a window's or a page's markup, looked up once as the
// markup has loaded. A control the markup lacks (or of another type) is a
// fault of the program, not of the user: it ends the process there and then,
// never as a null in a handler.
template <class T = QQuickItem>
T* RequireControl(const QObject* root, const char* name)
{
    auto* control = root->findChild<T*>(QLatin1String(name));
    if (control == nullptr) {
        fail_fast(HResult::NoInterface, (std::string("the markup has no control ") + name).c_str());
    }
    return control;
}

// A control whose text the code reads or writes: a label or a text box. The
// markup's controls are Qt Quick's own types, known to C++ by their "text"
// property alone, so that property is checked at load.
class TextControl
{
public:
    TextControl() = default;
    TextControl(const QObject* root, const char* name) : m_item(RequireControl(root, name))
    {
        const QMetaObject* type = m_item->metaObject();
        const int index = type->indexOfProperty("text");
        if (index < 0 || type->property(index).metaType().id() != QMetaType::QString) {
            fail_fast(HResult::NoInterface, (std::string("no text in control ") + name).c_str());
        }
    }

    QQuickItem* item() const { return m_item; }
    QString text() const { return m_item->property("text").toString(); }
    void setText(const QString& text) const { m_item->setProperty("text", text); }

private:
    QQuickItem* m_item = nullptr;
};

} // namespace Zorvane
