#pragma once

#include "OpenSslChecksumsViewModel.h"

#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace Zorvane {

// The checksum page. Its layout is the markup OpenSslChecksumsPage.qml, loaded
// at run time. A run keeps the view model alive after the page has gone, so
// the page shares it rather than owning it alone.
class OpenSslChecksumsPage : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(Zorvane::OpenSslChecksumsViewModel* ViewModel READ ViewModel CONSTANT)

public:
    explicit OpenSslChecksumsPage(QQuickItem* parent = nullptr);

    OpenSslChecksumsViewModel* ViewModel() const { return m_viewModel.get(); }

private:
    std::shared_ptr<OpenSslChecksumsViewModel> m_viewModel;
};

} // namespace Zorvane
