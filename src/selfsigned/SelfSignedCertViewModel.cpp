#include "selfsigned/SelfSignedCertViewModel.h"

#include <algorithm>

namespace Zorvane {

SelfSignedCertViewModel::SelfSignedCertViewModel(QObject* parent) : QObject(parent) {}

void SelfSignedCertViewModel::setValidDays(int value)
{
    // The minimum, not the maximum: the stored value is 1 or less after any
    // write. This is the behaviour the product ships with and must keep.
    m_validDays = std::min(value, 1);
}

} // namespace Zorvane
