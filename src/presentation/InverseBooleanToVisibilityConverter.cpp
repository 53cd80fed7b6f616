#include "InverseBooleanToVisibilityConverter.h"

#include "HResultError.h"
#include "Helpers.h"

namespace Zorvane {

InverseBooleanToVisibilityConverter::InverseBooleanToVisibilityConverter(QObject* parent)
    : QObject(parent)
{}

QVariant InverseBooleanToVisibilityConverter::Convert(const QVariant& value, const QVariant&,
                                                      const QVariant&, const QString&) const
{
    const bool hide = value.typeId() == QMetaType::Bool && value.toBool();
    return int(hide ? Visibility::Collapsed : Visibility::Visible);
}

QVariant InverseBooleanToVisibilityConverter::ConvertBack(const QVariant&, const QVariant&,
                                                          const QVariant&, const QString&) const
{
    throw HResultError(HResult::NotImplemented);
}

} // namespace Zorvane
