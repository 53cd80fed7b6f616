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
        if (QObject* size = named("sizeOutput")) {
            size->setProperty("text", QString::number(m_viewModel->FileSize()));
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

QObject* OpenSslChecksumsPage::named(const char* name) const
{
    return findChild<QObject*>(QLatin1String(name));
}

bool OpenSslChecksumsPage::noPackageIdentity() const
{
    return Package::NoPackageIdentity();
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
    if (auto* fileButton = qobject_cast<QQuickItem*>(named("FileButton"))) {
        fileButton->forceActiveFocus(Qt::OtherFocusReason);
    }
    LoadChosenAlgorithms(*m_viewModel, noPackageIdentity());
}

void OpenSslChecksumsPage::OnUnloaded()
{
    SaveChosenAlgorithms(*m_viewModel, noPackageIdentity());
}

void OpenSslChecksumsPage::ClearSizeText()
{
    if (QObject* size = named("sizeOutput")) {
        size->setProperty("text", QString());
    }
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
    if (QObject* name = page->named("fileNameBox")) {
        // Shown as text; bytes that are not UTF-8 show as replacement marks.
        name->setProperty("text", QFile::decodeName(*picked));
    }
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
    const QString sizeLabel = named("SizeLabel")->property("text").toString();
    const QString sizeText = named("sizeOutput")->property("text").toString();
    const QString report = ChecksumReport::Text(QFile::decodeName(m_file), sizeLabel, sizeText,
                                                *m_viewModel->HashAlgos());
    Clipboard::SetContent(
        ChecksumReport::Package(named("fileNameBox")->property("text").toString(), report));
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
