#pragma once

#include <QObject>
#include <QPageLayout>
#include <QString>

// The page that a printer configuration's "//PageSetup" describes (paper, margins plus
// gutter, orientation), read from "<name>.pcx" in the host's user "Reports" folder, else
// its system one. The sample report sets its PDF page from it directly; a report object
// would get the same from PrinterConfigurations.SetupPageFromPrinterConfiguration.
// Letter with one-inch margins when the configuration is not found.
QPageLayout PageLayoutFromConfiguration(QObject *host, const QString &name);
