#pragma once

#include <QString>
#include <QVariant>

namespace Zorvane {

// The application's local settings: a map from a key to a typed value that
// keeps its type across runs (a string stays a string, a map of numbers and
// rectangles stays that).
class SettingsValues
{
public:
    explicit SettingsValues(QString filePath);

    // The stored value, or an invalid QVariant where the key is absent.
    QVariant Lookup(const QString& key) const;
    // Stores or overwrites the value, on disk at once.
    void Insert(const QString& key, const QVariant& value);

    const QString& filePath() const { return m_filePath; }

private:
    QString m_filePath;
};

class ApplicationData
{
public:
    // The settings of this program's package family.
    static ApplicationData Current();
    static ApplicationData CreateForPackageFamily(const QString& familyName);

    SettingsValues LocalSettingsValues() const;

private:
    explicit ApplicationData(QString folder) : m_folder(std::move(folder)) {}

    QString m_folder;
};

} // namespace Zorvane
