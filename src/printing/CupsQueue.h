#pragma once

// What a CUPS queue tells beyond Qt's printer information: its paper bins (with the job
// option that selects one), its default bin, and the printable area of each paper size.
// Read through libcups from the server that CUPS_SERVER (or the client configuration)
// names; a queue the server does not know reads as not found.

#include <QList>
#include <QMarginsF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <utility>

namespace bravcpl5 {

struct CupsPaperBin {
    QString keyword; // the job option's value ("Upper", "top")
    QString name;    // display name ("Upper Tray")
    int code = 0;    // Windows bin code (see PaperBinCodes.h)
};

struct CupsPaperSize {
    QString keyword;     // the PPD's PageSize ("Letter", "w288h432")
    QString name;        // display name
    QSizeF points;       // portrait width and height
    QMarginsF unprintable; // portrait edges the printer cannot reach, in points
};

struct CupsQueue {
    bool found = false;
    // The job option that selects a bin: "InputSlot" for a queue with a PPD,
    // "media-source" for one known only through its IPP attributes.
    QString binOption;
    QList<CupsPaperBin> bins;
    QString defaultBin; // keyword; empty when the queue names none
    QList<CupsPaperSize> sizes;
    QString defaultSize; // keyword; empty when the queue names none

    const CupsPaperBin *binByCode(int code) const;
    const CupsPaperBin *binByKeyword(const QString &keyword) const;
    // The size with these portrait dimensions (to a point), or null.
    const CupsPaperSize *sizeByPoints(const QSizeF &points) const;
    const CupsPaperSize *sizeByKeyword(const QString &keyword) const;
};

// Reads a queue's bins and sizes. The PPD's InputSlot choices come first, since they carry
// the names the driver shows and the keyword the job needs; a queue without a PPD answers
// through its IPP "media-source" values.
CupsQueue ReadCupsQueue(const QString &queue);

using CupsOptions = QList<std::pair<QString, QString>>;

// Sends a file to a queue as one job with these options; returns the job id, 0 on failure.
int SubmitCupsJob(const QString &queue, const QString &file, const QString &title,
                  const CupsOptions &options);

} // namespace bravcpl5
