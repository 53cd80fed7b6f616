#pragma once

#include <QString>

namespace Zorvane {

class OpenSslChecksumsViewModel;

// How the chosen digests follow the user's clicks. Every change replaces or
// clears the chosen vector, and so starts a run.
namespace ChecksumSelection {

// A check box was clicked (its binding already set Checked): the chosen ones
// in catalogue order.
void AlgorithmClick(OpenSslChecksumsViewModel& viewModel);
// Every digest checked and chosen, in catalogue order.
void SelectAllClick(OpenSslChecksumsViewModel& viewModel);
// Every digest unchecked; the chosen vector cleared, also when already empty.
void SelectNoneClick(OpenSslChecksumsViewModel& viewModel);

// The stored form: the chosen names in order, joined by single commas.
QString JoinNames(const OpenSslChecksumsViewModel& viewModel);
// Chooses the digests named in a stored text, in the order of the text:
// exact matches only, unknown and empty names dropped, a name twice chosen twice.
void ApplyStoredNames(OpenSslChecksumsViewModel& viewModel, const QString& stored);

} // namespace ChecksumSelection
} // namespace Zorvane
