#include "platform/ApplicationData.h"

#include "platform/Package.h"

#include <QDataStream>
#include <QDir>
#include <QIODevice>
#include <QSettings>
#include <QStandardPaths>

namespace Zorvane {

namespace {
// Values go to disk as a serialised QVariant so that their type survives:
// plain INI text would read every number back as a string.
QByteArray encode(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    stream << value;
    return bytes;
}

QVariant decode(const QVariant& stored)
{
    if (stored.typeId() != QMetaType::QByteArray) {
        return stored; // written by hand: take it as it stands
    }
    QByteArray bytes = stored.toByteArray();
    QDataStream stream(&bytes, QIODevice::ReadOnly);
    stream.setVersion(QDataStream::Qt_6_4);
    QVariant value;
    stream >> value;
    return stream.status() == QDataStream::Ok ? value : QVariant();
}
} // namespace

SettingsValues::SettingsValues(QString filePath) : m_filePath(std::move(filePath)) {}

QVariant SettingsValues::Lookup(const QString& key) const
{
    const QSettings settings(m_filePath, QSettings::IniFormat);
    return settings.contains(key) ? decode(settings.value(key)) : QVariant();
}

void SettingsValues::Insert(const QString& key, const QVariant& value)
{
    QSettings settings(m_filePath, QSettings::IniFormat);
    settings.setValue(key, encode(value));
    settings.sync();
}

ApplicationData ApplicationData::Current()
{
    return CreateForPackageFamily(Package::FamilyName);
}

ApplicationData ApplicationData::CreateForPackageFamily(const QString& familyName)
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return ApplicationData(QDir(base).filePath(familyName));
}

SettingsValues ApplicationData::LocalSettingsValues() const
{
    return SettingsValues(QDir(m_folder).filePath(QStringLiteral("LocalSettings.ini")));
}

} // namespace Zorvane
