#pragma once

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

class QQuickItem;

namespace Zorvane {

// On an element: the full class name of an ancestor to find, and the ancestor
// found, as the element's data context. Markup writes
// AncestorSource.ancestorType and reads AncestorSource.dataContext.
class AncestorSourceAttached : public QObject
{
    Q_OBJECT
    Q_PROPERTY(
        QVariant ancestorType READ ancestorType WRITE setAncestorType NOTIFY ancestorTypeChanged)
    Q_PROPERTY(QObject* dataContext READ dataContext NOTIFY dataContextChanged)

public:
    using QObject::QObject;
    QVariant ancestorType() const { return m_ancestorType; }
    void setAncestorType(const QVariant& type);
    QObject* dataContext() const { return m_dataContext; }
    void setDataContext(QObject* context);

Q_SIGNALS:
    void ancestorTypeChanged();
    void dataContextChanged();

private:
    QVariant m_ancestorType;
    QPointer<QObject> m_dataContext;
};

// Gives an element deep inside a template its named ancestor as data context.
// The search walks up the visual parents (never the element itself), matches
// the most derived class's full name exactly, and runs once: when the name is
// set on a shown element, else when the element is first shown.
class AncestorSource : public QObject
{
    Q_OBJECT
    QML_ATTACHED(Zorvane::AncestorSourceAttached)

public:
    static AncestorSourceAttached* qmlAttachedProperties(QObject* object);

    // Raises HResultError (no interface) when the stored value is not a string.
    static QString GetAncestorType(QObject* target);
    static void SetAncestorType(QObject* target, const QString& value);
    static QObject* GetDataContext(QObject* target);

    // The program's full class name of an object: "Zorvane.OpenSslChecksumsPage".
    static QString RuntimeClassName(const QObject* object);

    static void OnAncestorTypeChanged(QQuickItem* element);
    static void ApplyAncestor(QQuickItem* element);
};

} // namespace Zorvane
