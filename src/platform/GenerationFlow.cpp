#include "platform/GenerationFlow.h"

#include "platform/FailureDialog.h"
#include "platform/FileManager.h"
#include "platform/VisualStates.h"

#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>

namespace Zorvane {

FireAndForget RunGeneration(QQuickItem* pageItem, QQuickWindow* ownerWindow, GenerationSteps steps)
{
    // The page may go before the run ends (the user leaves it); the window,
    // where a failure is told, stays.
    const QPointer<QQuickItem> page = pageItem;
    const QPointer<QQuickWindow> owner = ownerWindow;

    const std::optional<QByteArray> picked = co_await PickFileAsync(owner, steps.picker);
    if (!picked) {
        co_return; // cancelled
    }
    const QList<QByteArray> written = steps.placeOutputs(*picked);

    GoToState(page, VisualStates::InProgress);
    const VisualStateGuard normalOnExit(page);
    const UiContext ui = UiContext::Capture();
    co_await ResumeBackground{};

    const std::error_code ec = steps.build();

    co_await ui;
    if (ec.value() != 0) {
        if (owner) {
            ShowFailureDialog(owner, steps.failureTitle, ec);
        }
        co_return;
    }
    FileManager::ShowItems(written);
}

} // namespace Zorvane
