#pragma once

#include "checksums/ChecksumRun.h"
#include "checksums/OpenSslChecksumsViewModel.h"
#include "platform/Controls.h"
#include "platform/Coroutines.h"

#include <QPointer>
#include <QQuickItem>

#include <memory>

namespace Zorvane {

// The checksum page. Its layout is the markup OpenSslChecksumsPage.qml, loaded
// at run time. A run keeps the view model alive after the page has gone, so
// the page shares it rather than owning it alone.
class OpenSslChecksumsPage : public QQuickItem, public ChecksumRunHost
{
    Q_OBJECT

    Q_PROPERTY(Zorvane::OpenSslChecksumsViewModel* ViewModel READ viewModelObject CONSTANT)

public:
    explicit OpenSslChecksumsPage(QQuickItem* parent = nullptr);
    ~OpenSslChecksumsPage() override;

    OpenSslChecksumsViewModel* viewModelObject() const { return m_viewModel.get(); }

    // The user's commands, called by the markup.
    Q_INVOKABLE void SelectFileClick() { SelectFileAsync(); }
    Q_INVOKABLE void AlgorithmClick();
    Q_INVOKABLE void SelectAllClick();
    Q_INVOKABLE void SelectNoneClick();
    Q_INVOKABLE void CopyAllClick();
    Q_INVOKABLE void CopyTextClick(QObject* sender);

    // What a run needs of the page.
    QObject* PageObject() override { return this; }
    std::shared_ptr<OpenSslChecksumsViewModel> ViewModel() override { return m_viewModel; }
    QByteArray FilePath() const override { return m_file; }
    void ClearSizeText() override;

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    FireAndForget SelectFileAsync();
    void OnLoaded();
    void OnUnloaded();

    std::shared_ptr<OpenSslChecksumsViewModel> m_viewModel;
    QByteArray m_file; ///< the file system's bytes
    // The markup's controls that the code uses, resolved once at load.
    QQuickItem* m_fileButton = nullptr;
    TextControl m_fileNameBox;
    TextControl m_sizeLabel;
    TextControl m_sizeOutput;
    bool m_loaded = false;
};

} // namespace Zorvane
