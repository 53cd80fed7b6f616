#pragma once

#include "platform/Coroutines.h"
#include "platform/FilePicker.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>
#include <system_error>

class QQuickItem;
class QQuickWindow;

namespace Zorvane {

// What one certificate flow has of its own; the rest is the same for all.
struct GenerationSteps
{
    FilePickRequest picker; ///< the choice of file type that the picker offers
    QString failureTitle;   ///< the failure dialog's title
    // On the UI thread, once the user has picked: where the files go, set in
    // the run's own copy of the settings; gives the files to show on success.
    std::function<QList<QByteArray>(const QByteArray& picked)> placeOutputs;
    // On a pool thread: the OpenSSL work on that copy, and its failure code.
    std::function<std::error_code()> build;
};

// One generation after its settings are copied: asks for the output file over
// `owner` (a cancel ends it silently), puts the page "InProgress" while
// `build` runs off the UI thread and back to "Normal" however it ends, then
// tells a failure over `owner` (also when the user has left the page) or
// shows the written files in the file manager. Nobody waits for it.
FireAndForget RunGeneration(QQuickItem* page, QQuickWindow* owner, GenerationSteps steps);

} // namespace Zorvane
