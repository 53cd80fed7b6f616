#include "platform/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace Zorvane::Clipboard {

void SetContent(const DataPackage& package)
{
    auto* data = new QMimeData; // the clipboard takes ownership
    data->setText(package.Text);
    if (!package.Title.isEmpty()) {
        data->setData(TitleMimeType, package.Title.toUtf8());
    }
    QGuiApplication::clipboard()->setMimeData(data);
}

} // namespace Zorvane::Clipboard
