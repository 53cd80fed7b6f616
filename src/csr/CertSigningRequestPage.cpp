#include "CertSigningRequestPage.h"

namespace Zorvane {

CertSigningRequestPage::CertSigningRequestPage(QQuickItem* parent)
    : QQuickItem(parent), m_viewModel(new CertSigningRequestViewModel(this))
{
    setFlag(ItemIsFocusScope);
}

} // namespace Zorvane
