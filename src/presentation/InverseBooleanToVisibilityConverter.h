#pragma once

#include <QObject>
#include <QVariant>

namespace Zorvane {

// One-way: true hides, false shows, and anything that is not a boolean
// (null included) shows. Unlike Helpers.InverseBooleanToVisibility, which
// hides on null.
class InverseBooleanToVisibilityConverter : public QObject
{
    Q_OBJECT

public:
    explicit InverseBooleanToVisibilityConverter(QObject* parent = nullptr);

    // Returns a Visibility as an int: 0 visible, 1 collapsed.
    Q_INVOKABLE QVariant Convert(const QVariant& value, const QVariant& targetType = {},
                                 const QVariant& parameter = {},
                                 const QString& language = {}) const;
    // Not for two-way bindings: always raises "not implemented" (0x80004001),
    // as a script error when called from markup.
    Q_INVOKABLE QVariant ConvertBack(const QVariant& value, const QVariant& targetType = {},
                                     const QVariant& parameter = {},
                                     const QString& language = {}) const;
};

} // namespace Zorvane
