#include "presentation/AncestorSource.h"

#include "platform/EventHandler.h"
#include "platform/HResultError.h"
#include "presentation/AttachedValues.h"

#include <QJSEngine>
#include <QMetaObject>
#include <QQuickItem>
#include <QQuickWindow>

#include <map>

namespace Zorvane {

namespace {

AncestorSourceAttached* attached(QObject* target)
{
    return AttachedValues<AncestorSource, AncestorSourceAttached>(target);
}

// Elements waiting for their first showing, by identity, with the
// subscription that will apply the search then.
std::map<const QQuickItem*, QMetaObject::Connection>& pending()
{
    static std::map<const QQuickItem*, QMetaObject::Connection> table;
    return table;
}

bool isLoaded(const QQuickItem* element)
{
    return element->window() != nullptr;
}

void onElementLoaded(QQuickItem* element)
{
    const auto entry = pending().find(element);
    if (entry == pending().end()) {
        return;
    }
    QObject::disconnect(entry->second); // once per element
    pending().erase(entry);
    AncestorSource::ApplyAncestor(element);
}

} // namespace

void AncestorSourceAttached::setAncestorType(const QVariant& type)
{
    m_ancestorType = type;
    Q_EMIT ancestorTypeChanged();
    auto* element = qobject_cast<QQuickItem*>(parent());
    if (element == nullptr) {
        return;
    }
    try {
        AncestorSource::OnAncestorTypeChanged(element);
    } catch (const std::exception& error) {
        // Inside QML a failure becomes the assignment's error.
        if (QJSEngine* engine = qjsEngine(element)) {
            engine->throwError(QString::fromUtf8(error.what()));
            return;
        }
        throw;
    }
}

void AncestorSourceAttached::setDataContext(QObject* context)
{
    if (m_dataContext != context) {
        m_dataContext = context;
        Q_EMIT dataContextChanged();
    }
}

AncestorSourceAttached* AncestorSource::qmlAttachedProperties(QObject* object)
{
    return new AncestorSourceAttached(object);
}

QString AncestorSource::GetAncestorType(QObject* target)
{
    const QVariant value = attached(target)->ancestorType();
    if (value.typeId() != QMetaType::QString) {
        throw HResultError(HResult::NoInterface);
    }
    return value.toString();
}

void AncestorSource::SetAncestorType(QObject* target, const QString& value)
{
    attached(target)->setAncestorType(value);
}

QObject* AncestorSource::GetDataContext(QObject* target)
{
    return attached(target)->dataContext();
}

QString AncestorSource::RuntimeClassName(const QObject* object)
{
    // An element made from markup carries a generated class on top of its C++
    // class; the C++ class is the one that names it.
    const QMetaObject* meta = object->metaObject();
    while (meta != nullptr && QByteArray(meta->className()).contains("_QML")) {
        meta = meta->superClass();
    }
    if (meta == nullptr) {
        return {};
    }
    return QString::fromLatin1(meta->className())
        .replace(QStringLiteral("::"), QStringLiteral("."));
}

void AncestorSource::OnAncestorTypeChanged(QQuickItem* element)
{
    if (isLoaded(element)) {
        ApplyAncestor(element);
        return;
    }
    if (pending().count(element) != 0) {
        return; // keeps its first subscription
    }
    pending()[element] = QObject::connect(element, &QQuickItem::windowChanged, element,
                                          [element](QQuickWindow* window) {
                                              if (window != nullptr) {
                                                  RunHandler([&] { onElementLoaded(element); });
                                              }
                                          });
    // Nothing keeps an element alive here: one that goes before it is shown
    // leaves the table, so that its address can serve another.
    QObject::connect(element, &QObject::destroyed, [element] { pending().erase(element); });
}

void AncestorSource::ApplyAncestor(QQuickItem* element)
{
    const QString wanted = GetAncestorType(element);
    QQuickItem* found = nullptr;
    for (QQuickItem* parent = element->parentItem(); parent != nullptr;
         parent = parent->parentItem()) {
        if (RuntimeClassName(parent) == wanted) {
            found = parent;
            break;
        }
    }
    // A failed search clears whatever context the element had.
    attached(element)->setDataContext(found);
}

} // namespace Zorvane
