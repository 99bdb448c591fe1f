#include "library/Registry.h"

#include "library/HostContract.h"

#include <QDir>
#include <QSettings>
#include <QStandardPaths>
#include <memory>

namespace bravcpl5 {

namespace {

QString &registryFileOverride()
{
    static QString path;
    return path;
}

// QSettings takes "\" and "/" alike as key separators and folds repeated ones, so the
// registry's key text can be used as it stands.
QString settingsKey(const QString &key, const QString &valueName)
{
    return key + QLatin1Char('\\') + valueName;
}

std::unique_ptr<QSettings> openHive()
{
#ifdef Q_OS_WIN
    return std::make_unique<QSettings>(QStringLiteral("HKEY_CURRENT_USER"), QSettings::NativeFormat);
#else
    return std::make_unique<QSettings>(RegistryFile(), QSettings::IniFormat);
#endif
}

} // namespace

void SetRegistryFile(const QString &path) { registryFileOverride() = path; }

QString RegistryFile()
{
    if (!registryFileOverride().isEmpty())
        return registryFileOverride();
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
        .filePath(QStringLiteral("bravcpl5/HKEY_CURRENT_USER.ini"));
}

QString GetRegValue(unsigned hive, const QString &key, const QString &valueName,
                    const QString &defaultValue)
{
    if (hive != HKEY_CURRENT_USER_HANDLE || valueName.isEmpty())
        return defaultValue;
    const auto settings = openHive();
    const QVariant value = settings->value(settingsKey(key, valueName));
    return value.isValid() ? value.toString() : defaultValue;
}

bool SetRegValue(unsigned hive, const QString &key, const QString &valueName, const QString &data)
{
    if (hive != HKEY_CURRENT_USER_HANDLE || valueName.isEmpty())
        return false;
    const auto settings = openHive();
    settings->setValue(settingsKey(key, valueName), data);
    settings->sync();
    return settings->status() == QSettings::NoError;
}

QString PrinterConfigurationsKey(QObject *host)
{
    return host::fixSettingsKey(host, QString::fromLatin1(PrinterConfigurationsKeyTemplate));
}

} // namespace bravcpl5
