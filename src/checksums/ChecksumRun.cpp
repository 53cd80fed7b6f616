#include "checksums/ChecksumRun.h"

#include "checksums/OpenSslChecksumsViewModel.h"
#include "checksums/digest_engine.h"
#include "platform/VisualStates.h"

#include <QPointer>

#include <cstdint>
#include <optional>
#include <vector>

namespace Zorvane {

FireAndForget CalculateChecksums(ChecksumRunHost* host)
{
    const QPointer<QObject> page = host->PageObject();
    const std::shared_ptr<OpenSslChecksumsViewModel> viewModel = host->ViewModel();

    // The snapshot: a later change of the selection starts a run of its own.
    const QList<HashAlgo*> chosen = viewModel->HashAlgos()->items();
    std::vector<const EVP_MD*> digests;
    digests.reserve(static_cast<std::size_t>(chosen.size()));
    for (const HashAlgo* algo : chosen) {
        digests.push_back(algo->digest() != nullptr ? algo->digest()->get() : nullptr);
    }
    std::optional<OnePassDigester> digester; // freed after the page is back to Normal

    GoToState(page, VisualStates::InProgress);
    const VisualStateGuard normalOnExit(page);

    // Through -1 first, so that the final size always raises a change, even
    // for the same file again.
    viewModel->setFileSize(-1);
    host->ClearSizeText();
    for (HashAlgo* algo : chosen) {
        algo->setChecksum(QString());
    }

    const std::string path = host->FilePath().toStdString();
    if (path.empty()) {
        co_return;
    }

    const UiContext ui = UiContext::Capture();
    co_await ResumeBackground{};

    const std::int64_t size = file_size(path);
    {
        ChunkedFileReader reader(path);
        digester.emplace(digests);
        reader.feed(*digester);
    }

    co_await ui;

    const std::vector<std::optional<std::string>> results = digester->finish();
    for (std::size_t i = 0; i < results.size(); ++i) {
        if (results[i]) {
            chosen[static_cast<qsizetype>(i)]->setChecksum(QString::fromLatin1(*results[i]));
        }
    }
    viewModel->setFileSize(size);
}

} // namespace Zorvane
