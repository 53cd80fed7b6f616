#include "csr/CertSigningRequestPage.h"

#include "certs/output_paths.h"
#include "certs/request_builder.h"
#include "platform/Controls.h"
#include "platform/Focus.h"
#include "platform/GenerationFlow.h"
#include "platform/NarrowText.h"

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

RequestSettings CopyRequestSettings(const CertSigningRequestViewModel& viewModel)
{
    RequestSettings settings;
    settings.forDigitalSigning = viewModel.ForDigitalSigning();
    settings.commonNameWide = viewModel.CommonName().toStdU16String();
    settings.commonName = NarrowUtf8(viewModel.CommonName());
    settings.altNames = NarrowUtf8(viewModel.AltNames());
    settings.organization = NarrowUtf8(viewModel.Organization());
    settings.organizationalUnit = NarrowUtf8(viewModel.OrganizationalUnit());
    settings.location = NarrowUtf8(viewModel.Location());
    settings.state = NarrowUtf8(viewModel.State());
    settings.countryCode = NarrowUtf8(viewModel.CountryCode());
    settings.passphrase = NarrowUtf8(viewModel.Passphrase());
    return settings;
}

FireAndForget CertSigningRequestPage::GenerateAsync(QObject* sender)
{
    static_cast<void>(sender); // one output form: the button is not read

    auto settings = std::make_shared<RequestSettings>(CopyRequestSettings(*m_viewModel));
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
