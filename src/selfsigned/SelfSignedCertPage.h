#pragma once

#include "platform/Coroutines.h"
#include "selfsigned/SelfSignedCertViewModel.h"

#include <QQuickItem>

namespace Zorvane {

// The self-signed page. Its layout is the markup SelfSignedCertPage.qml, loaded at run
// time; the page owns its view model for its whole life.
class SelfSignedCertPage : public QQuickItem
{
    Q_OBJECT

    Q_PROPERTY(Zorvane::SelfSignedCertViewModel* ViewModel READ ViewModel CONSTANT)

public:
    explicit SelfSignedCertPage(QQuickItem* parent = nullptr);

    SelfSignedCertViewModel* ViewModel() const { return m_viewModel; }

    // The generate button's click: starts the generation, which nobody waits for.
    Q_INVOKABLE void OnGenerateClick(QObject* sender) { GenerateAsync(sender); }

protected:
    void componentComplete() override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    FireAndForget GenerateAsync(QObject* sender);

    SelfSignedCertViewModel* m_viewModel;
    QQuickItem* m_commonName = nullptr; ///< resolved once, at load
};

} // namespace Zorvane
