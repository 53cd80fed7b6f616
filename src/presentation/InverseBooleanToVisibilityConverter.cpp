#include "presentation/InverseBooleanToVisibilityConverter.h"

#include "platform/HResultError.h"
#include "presentation/Helpers.h"

#include <QJSEngine>

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
    const HResultError notImplemented(HResult::NotImplemented);
    // Called from markup, the failure is the script's error: no C++ exception
    // ever crosses the QML engine.
    if (QJSEngine* engine = qjsEngine(this)) {
        engine->throwError(QString::fromUtf8(notImplemented.what()));
        return {};
    }
    throw notImplemented;
}

} // namespace Zorvane
