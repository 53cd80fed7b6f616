#include "checksums/ChecksumSelection.h"

#include "checksums/OpenSslChecksumsViewModel.h"

#include <QStringList>

namespace Zorvane::ChecksumSelection {

void AlgorithmClick(OpenSslChecksumsViewModel& viewModel)
{
    QList<HashAlgo*> chosen;
    for (HashAlgo* algo : viewModel.AvailableHashAlgos()->items()) {
        if (algo->Checked()) {
            chosen << algo;
        }
    }
    viewModel.HashAlgos()->ReplaceAll(chosen);
}

void SelectAllClick(OpenSslChecksumsViewModel& viewModel)
{
    const QList<HashAlgo*> all = viewModel.AvailableHashAlgos()->items();
    for (HashAlgo* algo : all) {
        algo->setChecked(true);
    }
    viewModel.HashAlgos()->ReplaceAll(all);
}

void SelectNoneClick(OpenSslChecksumsViewModel& viewModel)
{
    for (HashAlgo* algo : viewModel.AvailableHashAlgos()->items()) {
        algo->setChecked(false);
    }
    viewModel.HashAlgos()->Clear();
}

QString JoinNames(const OpenSslChecksumsViewModel& viewModel)
{
    QStringList names;
    for (const HashAlgo* algo : viewModel.HashAlgos()->items()) {
        names << algo->ShortName();
    }
    return names.join(QLatin1Char(','));
}

void ApplyStoredNames(OpenSslChecksumsViewModel& viewModel, const QString& stored)
{
    const QList<HashAlgo*>& available = viewModel.AvailableHashAlgos()->items();
    QList<HashAlgo*> found;
    // An empty text has no pieces; a trailing comma gives an empty last one.
    const QStringList pieces = stored.isEmpty() ? QStringList() : stored.split(QLatin1Char(','));
    for (const QString& piece : pieces) {
        for (HashAlgo* algo : available) {
            if (algo->ShortName() == piece) {
                found << algo;
                break;
            }
        }
    }
    for (HashAlgo* algo : found) {
        algo->setChecked(true);
    }
    viewModel.HashAlgos()->ReplaceAll(found);
}

} // namespace Zorvane::ChecksumSelection
