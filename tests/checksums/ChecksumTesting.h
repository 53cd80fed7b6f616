#pragma once

// Small readers of the checksum model shared by its tests.

#include "checksums/OpenSslChecksumsViewModel.h"

#include <QStringList>

namespace Zorvane::Testing {

inline QStringList names(const HashAlgoVector& vector)
{
    QStringList result;
    for (const HashAlgo* algo : vector.items()) {
        result << algo->ShortName();
    }
    return result;
}

inline HashAlgo* find(const OpenSslChecksumsViewModel& viewModel, const QString& name)
{
    for (HashAlgo* algo : viewModel.AvailableHashAlgos()->items()) {
        if (algo->ShortName() == name) {
            return algo;
        }
    }
    return nullptr;
}

} // namespace Zorvane::Testing
