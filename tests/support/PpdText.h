#pragma once

// A queue's PPD read as text, apart from libcups' PPD parser and the library's own reading,
// so tests can compare what the library lists with what the driver wrote.

#include <QHash>
#include <QList>
#include <QRectF>
#include <QSizeF>
#include <QString>

namespace bravcpl5::test {

struct PpdChoice {
    QString keyword;
    QString text;                         // in the PPD's own language; the keyword when none
    QHash<QString, QString> translations; // by language ("de"), from "*de.Option choice/text"
};

struct PpdOption {
    QString keyword; // "InputSlot", "ManualFeed", "HPPaperSource"
    QString text;
    QString group; // the OpenGroup it sits in ("InstallableOptions", ...)
    QString defaultChoice;
    QList<PpdChoice> choices;
    const PpdChoice *choice(const QString &keyword) const;
};

struct PpdText {
    bool found = false;
    QList<PpdOption> options;              // in the file's order
    QHash<QString, QSizeF> dimensions;     // PaperDimension by PageSize keyword, in points
    QHash<QString, QRectF> imageableAreas; // ImageableArea by PageSize keyword: points from
                                           // the bottom left corner
    const PpdOption *option(const QString &keyword) const;
};

// Downloads the queue's PPD from the cupsd that CUPS_SERVER names and reads it.
PpdText ReadQueuePpd(const QString &queue);
PpdText ParsePpd(const QByteArray &contents);

} // namespace bravcpl5::test
