#pragma once

// What a CUPS queue tells beyond Qt's printer information: its paper sizes with their exact
// dimensions and printable areas, its paper bins with the job option that selects each one,
// their codes, and the queue's defaults. Read through libcups from the server that
// CUPS_SERVER (or the client configuration) names; a queue the server does not know reads as
// not found. Names are in the user's language where the driver has it.

#include <QList>
#include <QMarginsF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <utility>

namespace bravcpl5 {

struct CupsPaperBin {
    QString option;  // the job option that selects it: "InputSlot", "ManualFeed", the
                     // driver's own ("HPPaperSource"), or without a PPD "media-source"
                     // (sent inside "media-col")
    QString keyword; // that option's value ("Upper", "True", "top")
    QString name;    // display name ("Upper Tray")
    int code = 0;    // Windows bin code (see PaperBinCodes.h)
};

struct CupsPaperSize {
    QString keyword;       // the PPD's PageSize ("Letter", "w288h432"), or without a PPD
                           // the IPP media name ("na_letter_8.5x11in")
    QString name;          // display name
    QSizeF points;         // portrait width and height, exactly as the printer gives them
    QMarginsF unprintable; // portrait edges the printer cannot reach, in points; none for
                           // a borderless sheet
    int code = 0;          // Windows paper code (see PaperSizeCodes.h)
};

using CupsOptions = QList<std::pair<QString, QString>>;

struct CupsQueue {
    bool found = false;
    bool hasPpd = false;
    bool hasManualFeedOption = false; // a separate Boolean ManualFeed option
    QList<CupsPaperBin> bins;
    int defaultBinCode = 0; // 0 when the queue names none
    QList<CupsPaperSize> sizes;
    int defaultSizeCode = 0; // 0 when the queue names none

    QString mediaType; // a driverless printer's default media type; "" where it names none
    // The portrait range of custom sheets the printer takes, in points; empty for none.
    QSizeF customMin;
    QSizeF customMax;
    // What the server says of the printer (PrinterDescription).
    QString description;
    QString makeAndModel;
    QString location;
    QString deviceUri;
    // The queue's state as the server gives it.
    bool stopped = false;
    bool acceptingJobs = true;
    QStringList stateReasons; // without "none" and "paused"

    const CupsPaperBin *binByCode(int code) const;
    // The size a stored code and its portrait dimensions print on (see FindStoredPaper in
    // PaperSizeCodes.h), or null.
    const CupsPaperSize *storedSize(int code, const QSizeF &points) const;
    // The default size and bin, else the first; null when there are none.
    const CupsPaperSize *defaultSize() const;
    const CupsPaperBin *defaultBin() const;
    // The job options that print on `size` from `bin` (either may be null). With a PPD: the
    // size as "media" and "PageSize", the bin's own option, and ManualFeed off when another
    // bin of a printer with a separate manual feed option is chosen. Without one: a
    // "media-col" with the sheet's size and margins, the source and the default type.
    CupsOptions jobOptions(const CupsPaperSize *size, const CupsPaperBin *bin) const;
};

enum class CupsQueueSource {
    Driver,            // the PPD when the queue has one, else the printer's IPP attributes
    PrinterAttributes, // the IPP attributes alone, as a client without the PPD sees the printer
};

// Reads a queue's bins and sizes: from its PPD (InputSlot, else the driver's own source
// option, and a separate ManualFeed option), or for a queue without one (a driverless
// printer) from its IPP attributes: sizes from its media database, bins from its
// "media-source" values. One request for the destination and one for its PPD or attributes.
CupsQueue ReadCupsQueue(const QString &queue, CupsQueueSource source = CupsQueueSource::Driver);

// The server's queues by name, sorted without regard to case, from one request for their
// names alone (asking for whole destinations costs seven times as much with 150 queues).
QStringList ReadCupsQueueNames();
// The default queue (the user's lpoptions and LPDEST/PRINTER first, as lp does); "" for none.
QString ReadCupsDefaultQueue();

// Sends a file to a queue as one job with these options; returns the job id, 0 on failure.
int SubmitCupsJob(const QString &queue, const QString &file, const QString &title,
                  const CupsOptions &options);

} // namespace bravcpl5
