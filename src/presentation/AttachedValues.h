#pragma once

#include <QObject>
#include <QtQml/qqml.h>

namespace Zorvane {

// The attached values of Owner on an object, made on first use. Before any
// QML engine has imported the module the type is not registered yet; then
// they are kept as a child of the object, where later calls find them.
template <class Owner, class Values>
Values* AttachedValues(QObject* target)
{
    if (auto* values = qobject_cast<Values*>(qmlAttachedPropertiesObject<Owner>(target, true))) {
        return values;
    }
    if (auto* values = target->findChild<Values*>(QString(), Qt::FindDirectChildrenOnly)) {
        return values;
    }
    return new Values(target);
}

} // namespace Zorvane
