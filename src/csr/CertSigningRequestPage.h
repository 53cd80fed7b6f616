#pragma once

#include "certs/request_builder.h"
#include "csr/CertSigningRequestViewModel.h"
#include "platform/Coroutines.h"

#include <QQuickItem>

namespace Zorvane {

// The copy a run works on: what the user changes from then on has no effect
// on it. The key size is not among them: a request's key is always 4096 bits.
RequestSettings CopyRequestSettings(const CertSigningRequestViewModel& viewModel);

// The request page. Its layout is the markup CertSigningRequestPage.qml, loaded at run
// time; the page owns its view model for its whole life.
class CertSigningRequestPage : public QQuickItem
{
    Q_OBJECT

    Q_PROPERTY(Zorvane::CertSigningRequestViewModel* ViewModel READ ViewModel CONSTANT)

public:
    explicit CertSigningRequestPage(QQuickItem* parent = nullptr);

    CertSigningRequestViewModel* ViewModel() const { return m_viewModel; }

    // The generate button's click: starts the generation, which nobody waits for.
    Q_INVOKABLE void OnGenerateClick(QObject* sender) { GenerateAsync(sender); }

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    FireAndForget GenerateAsync(QObject* sender);

    CertSigningRequestViewModel* m_viewModel;
    QQuickItem* m_commonName = nullptr; ///< resolved once, at load
};

} // namespace Zorvane
