#include "ToolHost.h"

QString ToolOptions::FixSettingsKey(const QString &key) const
{
    QString fixed = key;
    return fixed.replace(QStringLiteral("<1>"), profile);
}

// Only the "Reports" folders hold printer configurations.
QString ToolOptions::SystemFileLocation(const QString &kind) const
{
    return kind.compare(QLatin1String("Reports"), Qt::CaseInsensitive) == 0 ? systemFolder
                                                                            : QString();
}

QString ToolOptions::UserFileLocation(const QString &kind) const
{
    return kind.compare(QLatin1String("Reports"), Qt::CaseInsensitive) == 0 ? userFolder
                                                                            : QString();
}
