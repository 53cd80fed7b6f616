#include "selfsigned/SelfSignedCertPage.h"

#include "certs/output_paths.h"
#include "certs/self_signed_builder.h"
#include "platform/Controls.h"
#include "platform/Focus.h"
#include "platform/GenerationFlow.h"
#include "platform/HResultError.h"
#include "platform/NarrowText.h"

#include <QQuickWindow>

#include <memory>

namespace Zorvane {

namespace {
const QString FailureTitle = QStringLiteral("Failure Generating Self-Signed Certificate");
} // namespace

SelfSignedCertPage::SelfSignedCertPage(QQuickItem* parent)
    : QQuickItem(parent), m_viewModel(new SelfSignedCertViewModel(this))
{
    setFlag(ItemIsFocusScope);
}

void SelfSignedCertPage::componentComplete()
{
    QQuickItem::componentComplete();
    m_commonName = RequireControl(this, "CommonNameCtrl");
}

void SelfSignedCertPage::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && data.window != nullptr) {
        // Loaded: the focus goes to the name.
        FocusLater(m_commonName);
    }
}

FireAndForget SelfSignedCertPage::GenerateAsync(QObject* sender)
{
    // Copies first: what the user changes from here on has no effect on this run.
    auto settings = std::make_shared<SelfSignedSettings>();
    settings->forDigitalSigning = m_viewModel->ForDigitalSigning();
    settings->commonName = NarrowUtf8(m_viewModel->CommonName());
    settings->validDays = m_viewModel->ValidDays();
    settings->keySize = m_viewModel->KeySize();
    settings->passphrase = NarrowUtf8(m_viewModel->Passphrase());

    const QVariant tag = sender != nullptr ? sender->property("tag") : QVariant();
    if (tag.typeId() != QMetaType::QString) {
        throw HResultError(HResult::NoInterface, "the button's tag is no string");
    }
    settings->format = output_format_for_tag(tag.toString().toStdString());
    if (settings->commonName.empty()) {
        co_return;
    }

    const bool pem = settings->format == OutputFormat::Pem;
    GenerationSteps steps;
    steps.picker.choiceKey = pem ? QStringLiteral("PEM") : QStringLiteral("PKCS#12");
    steps.picker.extensions = pem ? QStringList{QStringLiteral(".crt")}
                                  : QStringList{QStringLiteral(".pfx"), QStringLiteral(".p12")};
    steps.picker.defaultExtension = QString::fromUtf8(default_extension(settings->format));
    steps.failureTitle = FailureTitle;
    steps.placeOutputs = [settings, pem](const QByteArray& picked) {
        settings->certPath =
            with_default_extension(picked.toStdString(), default_extension(settings->format));
        settings->keyPath = key_path_for(settings->certPath);
        QList<QByteArray> written{QByteArray::fromStdString(settings->certPath)};
        if (pem) {
            written << QByteArray::fromStdString(settings->keyPath);
        }
        return written;
    };
    steps.build = [settings] {
        return generate_self_signed(*settings);
    };
    RunGeneration(this, window(), std::move(steps));
}

} // namespace Zorvane
