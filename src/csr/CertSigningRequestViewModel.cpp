#include "csr/CertSigningRequestViewModel.h"

namespace Zorvane {

CertSigningRequestViewModel::CertSigningRequestViewModel(QObject* parent) : QObject(parent) {}

} // namespace Zorvane
