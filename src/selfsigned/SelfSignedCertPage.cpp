#include "SelfSignedCertPage.h"

#include "FailureDialog.h"
#include "FileManager.h"
#include "FilePicker.h"
#include "Focus.h"
#include "HResultError.h"
#include "VisualStates.h"
#include "output_paths.h"
#include "self_signed_builder.h"

#include <QQuickWindow>

namespace Zorvane {

namespace {
const QString FailureTitle = QStringLiteral("Failure Generating Self-Signed Certificate");
} // namespace

SelfSignedCertPage::SelfSignedCertPage(QQuickItem* parent)
    : QQuickItem(parent), m_viewModel(new SelfSignedCertViewModel(this))
{
    setFlag(ItemIsFocusScope);
}

void SelfSignedCertPage::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange && data.window != nullptr) {
        // Loaded: the focus goes to the name.
        FocusNamedItemLater(this, QStringLiteral("CommonNameCtrl"));
    }
}

FireAndForget SelfSignedCertPage::GenerateAsync(QObject* sender)
{
    const QPointer<SelfSignedCertPage> page = this;
    // What the run needs beyond its copies. The page may go before the run
    // ends (the user leaves it); the window, where a failure is told, stays.
    const QPointer<QQuickWindow> owner = window();

    // Copies first: what the user changes from here on has no effect on this run.
    SelfSignedSettings settings;
    settings.forDigitalSigning = m_viewModel->ForDigitalSigning();
    settings.commonName = m_viewModel->CommonName().toStdString();
    settings.validDays = m_viewModel->ValidDays();
    settings.keySize = m_viewModel->KeySize();
    settings.passphrase = m_viewModel->Passphrase().toStdString();

    const QVariant tag = sender != nullptr ? sender->property("tag") : QVariant();
    if (tag.typeId() != QMetaType::QString) {
        throw HResultError(HResult::NoInterface, "the button's tag is no string");
    }
    settings.format = output_format_for_tag(tag.toString().toStdString());
    if (settings.commonName.empty()) {
        co_return;
    }

    const bool pem = settings.format == OutputFormat::Pem;
    FilePickRequest request;
    request.choiceKey = pem ? QStringLiteral("PEM") : QStringLiteral("PKCS#12");
    request.extensions = pem ? QStringList{QStringLiteral(".crt")}
                             : QStringList{QStringLiteral(".pfx"), QStringLiteral(".p12")};
    request.defaultExtension = QString::fromUtf8(default_extension(settings.format));
    const std::optional<QByteArray> picked = co_await PickFileAsync(owner, request);
    if (!picked) {
        co_return; // cancelled
    }
    settings.certPath =
        with_default_extension(picked->toStdString(), default_extension(settings.format));
    settings.keyPath = key_path_for(settings.certPath);

    GoToState(page, VisualStates::InProgress);
    const VisualStateGuard normalOnExit(page);
    const UiContext ui = UiContext::Capture();
    co_await ResumeBackground{};

    const std::error_code ec = generate_self_signed(settings);

    co_await ui;
    if (ec.value() != 0) {
        if (owner) {
            ShowFailureDialog(owner, FailureTitle, ec);
        }
        co_return;
    }
    QList<QByteArray> written{QByteArray::fromStdString(settings.certPath)};
    if (pem) {
        written << QByteArray::fromStdString(settings.keyPath);
    }
    FileManager::ShowItems(written);
}

} // namespace Zorvane
