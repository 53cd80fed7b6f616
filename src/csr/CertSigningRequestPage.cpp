#include "csr/CertSigningRequestPage.h"

#include "certs/output_paths.h"
#include "certs/request_builder.h"
#include "platform/Controls.h"
#include "platform/Focus.h"
#include "platform/GenerationFlow.h"

#include <QQuickWindow>

#include <memory>

namespace Zorvane {

namespace {
const QString FailureTitle = QStringLiteral("Failure Generating Certificate Signing Request");
} // namespace

CertSigningRequestPage::CertSigningRequestPage(QQuickItem* parent)
    : QQuickItem(parent), m_viewModel(new CertSigningRequestViewModel(this))
{
    setFlag(ItemIsFocusScope);
}

void CertSigningRequestPage::componentComplete()
{
    QQuickItem::componentComplete();
    m_commonName = RequireControl(this, "CommonNameCtrl");
}

void CertSigningRequestPage::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && data.window != nullptr) {
        // Loaded: the focus goes to the name.
        FocusLater(m_commonName);
    }
}

FireAndForget CertSigningRequestPage::GenerateAsync(QObject* sender)
{
    static_cast<void>(sender); // one output form: the button is not read

    // Copies first: what the user changes from here on has no effect on this
    // run. The key size is not among them: a request's key is always 4096 bits.
    auto settings = std::make_shared<RequestSettings>();
    settings->forDigitalSigning = m_viewModel->ForDigitalSigning();
    settings->commonNameWide = m_viewModel->CommonName().toStdU16String();
    settings->commonName = m_viewModel->CommonName().toStdString();
    settings->altNames = m_viewModel->AltNames().toStdString();
    settings->organization = m_viewModel->Organization().toStdString();
    settings->organizationalUnit = m_viewModel->OrganizationalUnit().toStdString();
    settings->location = m_viewModel->Location().toStdString();
    settings->state = m_viewModel->State().toStdString();
    settings->countryCode = m_viewModel->CountryCode().toStdString();
    settings->passphrase = m_viewModel->Passphrase().toStdString();
    if (settings->commonName.empty()) {
        co_return;
    }

    GenerationSteps steps;
    steps.picker.choiceKey = QStringLiteral("PEM");
    steps.picker.extensions = {QString::fromUtf8(RequestDefaultExtension)};
    steps.picker.defaultExtension = QString::fromUtf8(RequestDefaultExtension);
    steps.failureTitle = FailureTitle;
    steps.placeOutputs = [settings](const QByteArray& picked) {
        settings->requestPath =
            with_default_extension(picked.toStdString(), RequestDefaultExtension);
        settings->keyPath = key_path_for(settings->requestPath);
        return QList<QByteArray>{QByteArray::fromStdString(settings->requestPath),
                                 QByteArray::fromStdString(settings->keyPath)};
    };
    steps.build = [settings] {
        return generate_request(*settings);
    };
    RunGeneration(this, window(), std::move(steps));
}

} // namespace Zorvane
