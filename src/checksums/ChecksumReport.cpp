#include "checksums/ChecksumReport.h"

#include "checksums/HashAlgoVector.h"

namespace Zorvane::ChecksumReport {

QString Text(const QString& filePath, const QString& sizeLabel, const QString& sizeText,
             const HashAlgoVector& chosen)
{
    static const QString LineEnd = QStringLiteral("\r\n");
    QString report = filePath + LineEnd + sizeLabel + QLatin1Char(' ') + sizeText;
    for (int i = 0; i < chosen.Size(); ++i) {
        const HashAlgo* algo = chosen.GetAt(i);
        report += LineEnd + algo->ShortName() + QStringLiteral(": ") + algo->Checksum();
    }
    return report;
}

DataPackage Package(const QString& fileNameText, const QString& report)
{
    return {QStringLiteral("Checksums for ") + fileNameText, report};
}

} // namespace Zorvane::ChecksumReport
