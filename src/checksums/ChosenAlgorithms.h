#pragma once

#include "platform/ApplicationData.h"

#include <QString>

#include <optional>

namespace Zorvane {

class OpenSslChecksumsViewModel;

inline const QString ChosenAlgorithmsKey = QStringLiteral("ChosenAlgorithms");

// The local settings, or nothing at all for a process without package identity.
std::optional<SettingsValues> GetSettingsValues(const bool& noPackageIdentity);

// Chooses the stored digests. Without a stored string nothing is touched;
// with one, the chosen vector is replaced (which starts a run), even when
// nothing matched.
void LoadChosenAlgorithms(OpenSslChecksumsViewModel& viewModel, const bool& noPackageIdentity);

// Stores the chosen names, overwriting what was there; an empty selection
// stores the empty string.
void SaveChosenAlgorithms(const OpenSslChecksumsViewModel& viewModel,
                          const bool& noPackageIdentity);

} // namespace Zorvane
