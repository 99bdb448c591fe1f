#pragma once

// The reports of the dealer's back office that the sample host offers: the general
// reports of its settings tree (one configuration file each in System/Reports), a
// customer quote (a process report) and a sheet of product labels, with the printer
// configuration each prints with and what draws their pages.

#include "report/ReferenceReport.h"

#include <QList>
#include <QString>

class HostDatabase;

struct DealerReport {
    enum class Kind { General, Quote, Labels };
    Kind kind = Kind::General;
    QString name;
    QString description;
    QString file; // a general report's configuration file; empty for the others
};

// The general reports of `dataFolder`'s System/Reports by name, then the quote and the labels.
QList<DealerReport> DealerReports(const QString &dataFolder);

// The printer configuration a report prints with: for a general report the one its layout
// names (its own .lyx, else the general one), else "Letter"; "Letter" for the quote and
// "Product Labels" for the labels.
QString PrinterConfigurationOf(QObject *library, const DealerReport &report);

// Draws the report's pages, laid out when the first page shows the content area's size.
// `outlines` draws the label sheet's die cuts, for a preview. `pageCount`, when given, is
// set once the report is laid out.
bravcpl5::ReferenceReport::PageDrawer PageDrawerFor(QObject *library, const HostDatabase *database,
                                                    const DealerReport &report, bool outlines,
                                                    int *pageCount = nullptr);
