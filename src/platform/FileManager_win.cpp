#include "platform/FileManager.h"

#include <QDir>
#include <QFileInfo>
#include <QString>

#include <memory>
#include <vector>

#include <windows.h>

#include <shlobj.h>

namespace Zorvane::FileManager {

namespace {
struct IdListFreer
{
    void operator()(ITEMIDLIST* list) const { ::ILFree(list); }
};
using IdList = std::unique_ptr<ITEMIDLIST, IdListFreer>;

IdList idListOf(const QString& path)
{
    const std::wstring native = QDir::toNativeSeparators(path).toStdWString();
    return IdList(::ILCreateFromPathW(native.c_str()));
}
} // namespace

// The folder of the first file opens in the system's file manager with the
// files selected. Its result is not looked at: a reveal that fails has
// nothing to tell the user that the files themselves do not.
void RevealInSystem(const QList<QByteArray>& paths)
{
    const IdList folder = idListOf(QFileInfo(QString::fromUtf8(paths.first())).absolutePath());
    std::vector<IdList> items;
    std::vector<LPCITEMIDLIST> children;
    for (const QByteArray& path : paths) {
        items.push_back(idListOf(QString::fromUtf8(path)));
        children.push_back(items.back().get());
    }
    if (folder) {
        ::SHOpenFolderAndSelectItems(folder.get(), static_cast<UINT>(children.size()),
                                     children.data(), 0);
    }
}

} // namespace Zorvane::FileManager
