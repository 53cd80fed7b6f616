#include "SelfSignedCertPage.h"

namespace Zorvane {

SelfSignedCertPage::SelfSignedCertPage(QQuickItem* parent)
    : QQuickItem(parent), m_viewModel(new SelfSignedCertViewModel(this))
{
    setFlag(ItemIsFocusScope);
}

} // namespace Zorvane
