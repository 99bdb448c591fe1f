#pragma once

#include <QDir>
#include <QProcessEnvironment>

namespace bravcpl5::test {

// This process's environment for a program run as on a fresh machine: a home of its own
// (HOME and XDG_CONFIG_HOME under `root`) and no display, so that the sample host tours
// offscreen and a test can tell whether it made configuration folders.
inline QProcessEnvironment FreshHomeEnvironment(const QDir &root)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), root.filePath(QStringLiteral("home")));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), root.filePath(QStringLiteral("config")));
    for (const char *name :
         {"XDG_DATA_HOME", "XDG_RUNTIME_DIR", "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QLatin1String(name));
    return environment;
}

} // namespace bravcpl5::test
