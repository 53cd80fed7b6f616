#pragma once

#include "platform/Clipboard.h"

#include <QString>

namespace Zorvane {

class HashAlgoVector;

namespace ChecksumReport {

// The path; the size label, a space and the size text; then "name: value" for
// each chosen digest in order. Lines end in CR LF, the last one in nothing.
QString Text(const QString& filePath, const QString& sizeLabel, const QString& sizeText,
             const HashAlgoVector& chosen);

// The whole report with its title, "Checksums for " and the shown file name.
DataPackage Package(const QString& fileNameText, const QString& report);

} // namespace ChecksumReport
} // namespace Zorvane
