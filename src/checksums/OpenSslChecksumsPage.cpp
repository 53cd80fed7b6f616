#include "checksums/OpenSslChecksumsPage.h"

#include "checksums/ChecksumReport.h"
#include "checksums/ChecksumSelection.h"
#include "checksums/ChosenAlgorithms.h"
#include "platform/Clipboard.h"
#include "platform/EventHandler.h"
#include "platform/FilePicker.h"
#include "platform/HResultError.h"
#include "platform/Package.h"
#include "presentation/DefinitionGrid.h"

#include <QFile>
#include <QQuickWindow>

namespace Zorvane {

OpenSslChecksumsPage::OpenSslChecksumsPage(QQuickItem* parent)
    : QQuickItem(parent), m_viewModel(std::make_shared<OpenSslChecksumsViewModel>())
{
    setFlag(ItemIsFocusScope);
    // Every change of the chosen digests starts a run. The connection ends
    // with the page, so the vector never keeps the page alive.
    connect(m_viewModel->HashAlgos(), &HashAlgoVector::VectorChanged, this,
            [this] { CalculateChecksums(this); });
    // The size text follows the size, one way; a run wipes it in between.
    connect(m_viewModel.get(), &OpenSslChecksumsViewModel::FileSizeChanged, this, [this] {
        if (m_sizeOutput.item() != nullptr) {
            m_sizeOutput.setText(QString::number(m_viewModel->FileSize()));
        }
    });
}

OpenSslChecksumsPage::~OpenSslChecksumsPage()
{
    // Going with the window counts as being unloaded: the selection is kept.
    if (m_loaded) {
        RunHandler([&] { OnUnloaded(); });
    }
}

void OpenSslChecksumsPage::componentComplete()
{
    QQuickItem::componentComplete();
    m_fileButton = RequireControl(this, "FileButton");
    m_fileNameBox = TextControl(this, "fileNameBox");
    m_sizeLabel = TextControl(this, "SizeLabel");
    m_sizeOutput = TextControl(this, "sizeOutput");
}

void OpenSslChecksumsPage::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change != ItemSceneChange) {
        return;
    }
    if (data.window != nullptr && !m_loaded) {
        m_loaded = true;
        QMetaObject::invokeMethod(
            this, [this] { RunHandler([&] { OnLoaded(); }); }, Qt::QueuedConnection);
    } else if (data.window == nullptr && m_loaded) {
        m_loaded = false;
        RunHandler([&] { OnUnloaded(); });
    }
}

void OpenSslChecksumsPage::OnLoaded()
{
    ClearSizeText();
    m_fileButton->forceActiveFocus(Qt::OtherFocusReason);
    LoadChosenAlgorithms(*m_viewModel, Package::NoPackageIdentity());
}

void OpenSslChecksumsPage::OnUnloaded()
{
    SaveChosenAlgorithms(*m_viewModel, Package::NoPackageIdentity());
}

void OpenSslChecksumsPage::ClearSizeText()
{
    m_sizeOutput.setText(QString());
}

FireAndForget OpenSslChecksumsPage::SelectFileAsync()
{
    const QPointer<OpenSslChecksumsPage> page = this;
    FilePickRequest request;
    request.mode = FilePickRequest::Mode::Open;
    // The page's window is the main window, which owns the picker.
    const std::optional<QByteArray> picked = co_await PickFileAsync(window(), request);
    if (!picked || !page) {
        co_return; // cancelled: the old file and its results stay
    }
    page->m_file = *picked;
    // Shown as text; bytes that are not UTF-8 show as replacement marks.
    page->m_fileNameBox.setText(QString::fromUtf8(*picked));
    CalculateChecksums(page);
}

void OpenSslChecksumsPage::AlgorithmClick()
{
    ChecksumSelection::AlgorithmClick(*m_viewModel);
}

void OpenSslChecksumsPage::SelectAllClick()
{
    ChecksumSelection::SelectAllClick(*m_viewModel);
}

void OpenSslChecksumsPage::SelectNoneClick()
{
    ChecksumSelection::SelectNoneClick(*m_viewModel);
}

void OpenSslChecksumsPage::CopyAllClick()
{
    const QString report = ChecksumReport::Text(QString::fromUtf8(m_file), m_sizeLabel.text(),
                                                m_sizeOutput.text(), *m_viewModel->HashAlgos());
    Clipboard::SetContent(ChecksumReport::Package(m_fileNameBox.text(), report));
}

void OpenSslChecksumsPage::CopyTextClick(QObject* sender)
{
    RunHandler([&] {
        // The value stands first in the button's grid: that is the layout rule.
        auto* button = qobject_cast<QQuickItem*>(sender);
        auto* grid =
            button != nullptr ? qobject_cast<DefinitionGrid*>(button->parentItem()) : nullptr;
        if (grid == nullptr || grid->childItems().isEmpty()) {
            throw HResultError(HResult::NoInterface, "a copy button stands in a grid");
        }
        QQuickItem* value = grid->childItems().first();
        if (value->metaObject()->indexOfProperty("text") < 0) {
            throw HResultError(HResult::NoInterface, "the grid starts with its value");
        }
        Clipboard::SetContent({QString(), value->property("text").toString()});
    });
}

} // namespace Zorvane
