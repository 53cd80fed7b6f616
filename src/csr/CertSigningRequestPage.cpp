#include "CertSigningRequestPage.h"

#include "FailureDialog.h"
#include "FileManager.h"
#include "FilePicker.h"
#include "Focus.h"
#include "VisualStates.h"
#include "output_paths.h"
#include "request_builder.h"

#include <QQuickWindow>

namespace Zorvane {

namespace {
const QString FailureTitle = QStringLiteral("Failure Generating Certificate Signing Request");
} // namespace

CertSigningRequestPage::CertSigningRequestPage(QQuickItem* parent)
    : QQuickItem(parent), m_viewModel(new CertSigningRequestViewModel(this))
{
    setFlag(ItemIsFocusScope);
}

void CertSigningRequestPage::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && data.window != nullptr) {
        // Loaded: the focus goes to the name.
        FocusNamedItemLater(this, QStringLiteral("CommonNameCtrl"));
    }
}

FireAndForget CertSigningRequestPage::GenerateAsync(QObject* sender)
{
    static_cast<void>(sender); // one output form: the button is not read
    const QPointer<CertSigningRequestPage> page = this;
    // What the run needs beyond its copies. The page may go before the run
    // ends (the user leaves it); the window, where a failure is told, stays.
    const QPointer<QQuickWindow> owner = window();

    // Copies first: what the user changes from here on has no effect on this
    // run. The key size is not among them: a request's key is always 4096 bits.
    RequestSettings settings;
    settings.forDigitalSigning = m_viewModel->ForDigitalSigning();
    settings.commonNameWide = m_viewModel->CommonName().toStdU16String();
    settings.commonName = m_viewModel->CommonName().toStdString();
    settings.altNames = m_viewModel->AltNames().toStdString();
    settings.organization = m_viewModel->Organization().toStdString();
    settings.organizationalUnit = m_viewModel->OrganizationalUnit().toStdString();
    settings.location = m_viewModel->Location().toStdString();
    settings.state = m_viewModel->State().toStdString();
    settings.countryCode = m_viewModel->CountryCode().toStdString();
    settings.passphrase = m_viewModel->Passphrase().toStdString();
    if (settings.commonName.empty()) {
        co_return;
    }

    FilePickRequest request;
    request.choiceKey = QStringLiteral("PEM");
    request.extensions = {QString::fromUtf8(RequestDefaultExtension)};
    request.defaultExtension = QString::fromUtf8(RequestDefaultExtension);
    const std::optional<QByteArray> picked = co_await PickFileAsync(owner, request);
    if (!picked) {
        co_return; // cancelled
    }
    settings.requestPath = with_default_extension(picked->toStdString(), RequestDefaultExtension);
    settings.keyPath = key_path_for(settings.requestPath);

    GoToState(page, VisualStates::InProgress);
    const VisualStateGuard normalOnExit(page);
    const UiContext ui = UiContext::Capture();
    co_await ResumeBackground{};

    const std::error_code ec = generate_request(settings);

    co_await ui;
    if (ec.value() != 0) {
        if (owner) {
            ShowFailureDialog(owner, FailureTitle, ec);
        }
        co_return;
    }
    FileManager::ShowItems({QByteArray::fromStdString(settings.requestPath),
                            QByteArray::fromStdString(settings.keyPath)});
}

} // namespace Zorvane
