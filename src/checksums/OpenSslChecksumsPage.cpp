#include "OpenSslChecksumsPage.h"

namespace Zorvane {

OpenSslChecksumsPage::OpenSslChecksumsPage(QQuickItem* parent)
    : QQuickItem(parent), m_viewModel(std::make_shared<OpenSslChecksumsViewModel>())
{
    setFlag(ItemIsFocusScope);
}

} // namespace Zorvane
