#pragma once

#include "platform/Coroutines.h"

#include <QByteArray>
#include <QObject>
#include <QString>

#include <memory>

namespace Zorvane {

class OpenSslChecksumsViewModel;

// What a checksum run needs of its page. Used only before the run's first
// suspension; after that the run keeps the view model alive by itself.
class ChecksumRunHost
{
public:
    virtual ~ChecksumRunHost() = default;

    // The page, whose "state" the run switches; the run stops touching it once it is gone.
    virtual QObject* PageObject() = 0;
    virtual std::shared_ptr<OpenSslChecksumsViewModel> ViewModel() = 0;
    // The picked file's path, the file system's bytes; empty before the first pick.
    virtual QByteArray FilePath() const = 0;
    // Empties the size text, which the size's binding has just set to "-1".
    virtual void ClearSizeText() = 0;
};

// Hashes the picked file once with every chosen digest, off the UI thread, and
// publishes the results and the size on the UI thread. Nobody waits for it; a
// file that cannot be read ends the process.
FireAndForget CalculateChecksums(ChecksumRunHost* host);

} // namespace Zorvane
