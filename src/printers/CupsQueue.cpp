#include "printers/CupsQueue.h"

#include "library/Logging.h"
#include "printers/PaperBinCodes.h"
#include "printers/PaperSizeCodes.h"

#include <QFile>
#include <algorithm>
#include <cmath>
#include <cups/cups.h>
#include <cups/ppd.h>
#include <memory>

namespace bravcpl5 {

namespace {

// What the print system said of the last request that failed, for the log.
const char *cupsError() { return cupsLastErrorString(); }

// The bin of a printer without sources to choose: a job names none.
const QString automatic = QStringLiteral("Automatically Select");
const QString manualFeed = QStringLiteral("ManualFeed");
// The largest sheet taken: 200 inches, beyond any roll a dealer prints on and within twips.
constexpr double maximumPoints = 200 * 72;

// Whether a size is one of a sheet, as a PPD or a media database may list sizes that are not.
bool isSheet(const QSizeF &points)
{
    return points.width() > 0 && points.height() > 0 && points.width() < maximumPoints
           && points.height() < maximumPoints;
}

// Codes for the sizes by the driver's words and their dimensions, so that twins and
// variants stay apart.
void numberSizes(QList<CupsPaperSize> &sizes)
{
    QList<PaperSheet> sheets;
    for (const CupsPaperSize &size : sizes)
        sheets.append({size.keyword, size.points, size.unprintable.isNull()});
    const QList<int> codes = NumberPaperSizes(sheets);
    for (qsizetype i = 0; i < sizes.size(); ++i)
        sizes[i].code = codes[i];
}

// The queue's description and state from its destination: "printer-state" 5 is stopped.
void readState(const cups_dest_t *dest, CupsQueue &result)
{
    const auto option = [&](const char *name) {
        return QString::fromUtf8(cupsGetOption(name, dest->num_options, dest->options));
    };
    result.description = option("printer-info");
    result.makeAndModel = option("printer-make-and-model");
    result.location = option("printer-location");
    result.deviceUri = option("device-uri");
    result.stopped = option("printer-state").toInt() == IPP_PSTATE_STOPPED;
    result.acceptingJobs = option("printer-is-accepting-jobs") != QLatin1String("false");
    for (const QString &reason : option("printer-state-reasons").split(u',', Qt::SkipEmptyParts)) {
        if (reason != QLatin1String("none") && reason != QLatin1String("paused"))
            result.stateReasons.append(reason);
    }
}

// The PPD calls are deprecated in favour of the IPP destination API, which gives neither
// the driver's bin names nor the printable areas; they are still part of libcups.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

struct PpdCloser {
    void operator()(ppd_file_t *ppd) const { ppdClose(ppd); }
};
using PpdFile = std::unique_ptr<ppd_file_t, PpdCloser>;

// Downloads the queue's PPD into a temporary file and opens it; null without one.
PpdFile openPpd(const QByteArray &queue)
{
    const char *path = cupsGetPPD2(CUPS_HTTP_DEFAULT, queue.constData());
    if (!path)
        return nullptr;
    const QString file = QString::fromLocal8Bit(path);
    PpdFile ppd(ppdOpenFile(path));
    QFile::remove(file);
    return ppd;
}

// A driver's own paper source option ("HPPaperSource", "BRInputSlot"): a choice among
// sources, not an installable accessory.
bool isVendorSource(const ppd_group_t &group, const ppd_option_t &option)
{
    const QString keyword = QString::fromUtf8(option.keyword).toLower();
    return option.ui != PPD_UI_BOOLEAN && qstrcmp(group.name, "InstallableOptions") != 0
           && keyword != QLatin1String("inputslot")
           && (keyword.contains(QLatin1String("inputslot"))
               || keyword.contains(QLatin1String("papersource"))
               || keyword.contains(QLatin1String("mediasource")));
}

void collectVendorSources(const ppd_group_t &group, QList<const ppd_option_t *> &found)
{
    for (int i = 0; i < group.num_options; ++i) {
        if (isVendorSource(group, group.options[i]))
            found.append(&group.options[i]);
    }
    for (int i = 0; i < group.num_subgroups; ++i)
        collectVendorSources(group.subgroups[i], found);
}

// A bin and where its name comes from once the PPD is translated.
struct BinSource {
    const ppd_option_t *option;
    const ppd_choice_t *choice; // null for the ManualFeed option's single bin
};

QList<BinSource> binSources(ppd_file_t *ppd)
{
    QList<const ppd_option_t *> options;
    if (const ppd_option_t *slot = ppdFindOption(ppd, "InputSlot"))
        options.append(slot);
    else
        for (int i = 0; i < ppd->num_groups; ++i)
            collectVendorSources(ppd->groups[i], options);
    QList<BinSource> sources;
    for (const ppd_option_t *option : options) {
        for (int i = 0; i < option->num_choices; ++i)
            sources.append({option, &option->choices[i]});
    }
    if (const ppd_option_t *manual = ppdFindOption(ppd, "ManualFeed");
        manual && manual->ui == PPD_UI_BOOLEAN)
        sources.append({manual, nullptr});
    return sources;
}

// The driver's name of a bin in the PPD's current language; the ManualFeed option's bin is
// named by the option ("Tray 1 (Manual)"), else "Manual Feed".
QString binName(const BinSource &source)
{
    if (!source.choice) {
        // libcups gives an option without a text its keyword instead.
        const QString text = QString::fromUtf8(source.option->text);
        return text.isEmpty() || text == manualFeed ? QStringLiteral("Manual Feed") : text;
    }
    return QString::fromUtf8(source.choice->text[0] ? source.choice->text : source.choice->choice);
}

// The queue's own default (lpadmin -o Option=...) outranks the driver's.
QString chosenValue(const ppd_option_t *option, const cups_dest_t *dest)
{
    const char *chosen = cupsGetOption(option->keyword, dest->num_options, dest->options);
    return QString::fromUtf8(chosen ? chosen : option->defchoice);
}

void readBins(ppd_file_t *ppd, const cups_dest_t *dest, CupsQueue &result)
{
    const QList<BinSource> sources = binSources(ppd);
    // A printer without trays to choose (most label printers; some with only a manual feed
    // switch) still has the bin a job without a source option takes.
    const bool trays = std::any_of(sources.begin(), sources.end(),
                                   [](const BinSource &source) { return source.choice; });
    // Codes from the driver's own texts, before translation, so they do not depend on the
    // user's language.
    QList<PaperBinName> names;
    if (!trays)
        names.append({QString(), automatic});
    for (const BinSource &source : sources)
        names.append({source.choice ? QString::fromUtf8(source.choice->choice) : manualFeed,
                      binName(source)});
    const QList<int> codes = NumberPaperBins(names);
    if (!trays) {
        result.bins.append({QString(), QString(), automatic, codes.first()});
        result.defaultBinCode = codes.first();
    }
    ppdLocalize(ppd);
    const qsizetype first = trays ? 0 : 1;
    for (qsizetype i = 0; i < sources.size(); ++i) {
        const BinSource &source = sources[i];
        const QString option = QString::fromUtf8(source.option->keyword);
        const QString keyword = source.choice ? names[first + i].keyword : QStringLiteral("True");
        const int code = codes[first + i];
        result.bins.append({option, keyword, binName(source), code});
        if (chosenValue(source.option, dest) == keyword
            && (result.defaultBinCode == 0 || !trays || !source.choice))
            result.defaultBinCode = code; // manual feed switched on outranks the tray
    }
    result.hasManualFeedOption = !sources.isEmpty() && !sources.last().choice;
}

void readSizes(ppd_file_t *ppd, const cups_dest_t *dest, CupsQueue &result)
{
    ppd_option_t *pageSize = ppdFindOption(ppd, "PageSize");
    const QString chosen = pageSize ? chosenValue(pageSize, dest) : QString();
    for (int i = 0; i < ppd->num_sizes; ++i) {
        const ppd_size_t &paper = ppd->sizes[i];
        const QSizeF points(paper.width, paper.length);
        // The custom size is no sheet, and neither is one without a usable size.
        if (qstrcmp(paper.name, "Custom") == 0 || !isSheet(points))
            continue;
        CupsPaperSize entry;
        entry.keyword = QString::fromUtf8(paper.name);
        const ppd_choice_t *choice = pageSize ? ppdFindChoice(pageSize, paper.name) : nullptr;
        entry.name = choice && choice->text[0] ? QString::fromUtf8(choice->text) : entry.keyword;
        entry.points = points;
        // The imageable area is given by its corners, from the bottom left.
        entry.unprintable = QMarginsF(paper.left, paper.length - paper.top,
                                      paper.width - paper.right, paper.bottom);
        result.sizes.append(entry);
    }
    numberSizes(result.sizes);
    for (const CupsPaperSize &size : std::as_const(result.sizes)) {
        if (size.keyword == chosen)
            result.defaultSizeCode = size.code;
    }
    if (ppd->variable_sizes) {
        result.customMin = QSizeF(ppd->custom_min[0], ppd->custom_min[1]);
        result.customMax = QSizeF(ppd->custom_max[0], ppd->custom_max[1]);
    }
}

bool readPpd(const QByteArray &queue, const cups_dest_t *dest, CupsQueue &result)
{
    PpdFile ppd = openPpd(queue);
    if (!ppd)
        return false;
    result.hasPpd = true;
    readBins(ppd.get(), dest, result); // translates the PPD, so sizes are named after it
    readSizes(ppd.get(), dest, result);
    return true;
}

#pragma GCC diagnostic pop

template <typename T, typename Match> const T *findFirst(const QList<T> &list, Match match)
{
    const auto found = std::find_if(list.begin(), list.end(), match);
    return found == list.end() ? nullptr : &*found;
}

// "tray-1" reads as "Tray 1".
QString keywordToName(const QString &keyword)
{
    QString name = keyword;
    name.replace(QLatin1Char('-'), QLatin1Char(' '));
    if (!name.isEmpty())
        name[0] = name[0].toUpper();
    return name;
}

struct HttpCloser {
    void operator()(http_t *http) const { httpClose(http); }
};
using Http = std::unique_ptr<http_t, HttpCloser>;

struct DestInfoFreer {
    void operator()(cups_dinfo_t *info) const { cupsFreeDestInfo(info); }
};
using DestInfo = std::unique_ptr<cups_dinfo_t, DestInfoFreer>;

// The destination API's localizing calls give nothing on the default connection, so the
// attributes are read on a connection of our own to the same server.
struct IppPrinter {
    Http http;
    cups_dest_t *dest;
    DestInfo info;
};

// Hundredths of a millimetre, as IPP gives lengths, in points, and back: a length read
// from IPP comes back exactly as the printer gave it.
double hundredthsToPoints(int hundredths) { return hundredths * 72.0 / 2540.0; }
long pointsToHundredths(double points) { return std::lround(points * 2540.0 / 72.0); }

// The printer's default media ("media-col-default"): what a job without a choice gets. Each
// part is empty or zero where the printer names none.
struct DefaultMedia {
    QSizeF points;
    QMarginsF margins;
    QString source;
    QString type;
};

DefaultMedia readDefaultMedia(ipp_attribute_t *mediaCol)
{
    DefaultMedia media;
    ipp_t *col = mediaCol ? ippGetCollection(mediaCol, 0) : nullptr;
    if (!col)
        return media;
    const auto integer = [](ipp_t *in, const char *name) {
        return ippGetInteger(ippFindAttribute(in, name, IPP_TAG_INTEGER), 0);
    };
    const auto text = [&](const char *name) {
        const char *value = ippGetString(ippFindAttribute(col, name, IPP_TAG_ZERO), 0, nullptr);
        return QString::fromUtf8(value ? value : "");
    };
    ipp_attribute_t *size = ippFindAttribute(col, "media-size", IPP_TAG_BEGIN_COLLECTION);
    if (ipp_t *dimensions = size ? ippGetCollection(size, 0) : nullptr)
        media.points = QSizeF(hundredthsToPoints(integer(dimensions, "x-dimension")),
                              hundredthsToPoints(integer(dimensions, "y-dimension")));
    media.margins = QMarginsF(hundredthsToPoints(integer(col, "media-left-margin")),
                              hundredthsToPoints(integer(col, "media-top-margin")),
                              hundredthsToPoints(integer(col, "media-right-margin")),
                              hundredthsToPoints(integer(col, "media-bottom-margin")));
    media.source = text("media-source");
    media.type = text("media-type");
    return media;
}

// The printer's sources by their IPP keywords; the current one is the default media's
// source, else the queue's default source (cupsd has one only where the queue's
// administrator chose it), else the printer's "media-source-default".
void readIppBins(const IppPrinter &printer, const DefaultMedia &defaults, CupsQueue &result)
{
    http_t *http = printer.http.get();
    const QString option = QStringLiteral("media-source");
    ipp_attribute_t *sources = cupsFindDestSupported(http, printer.dest, printer.info.get(),
                                                     "media-source");
    QList<PaperBinName> names;
    for (int i = 0; i < ippGetCount(sources); ++i) {
        const QString keyword = QString::fromUtf8(ippGetString(sources, i, nullptr));
        names.append({keyword, keywordToName(keyword)});
    }
    if (names.isEmpty()) { // as a PPD without sources: the bin a job without one takes
        result.bins.append(
            {QString(), QString(), automatic, StandardPaperBinCode({QString(), automatic})});
        result.defaultBinCode = result.bins.first().code;
        return;
    }
    const QList<int> codes = NumberPaperBins(names);
    QString chosenKeyword = defaults.source;
    if (chosenKeyword.isEmpty()) // the queue's own, as lpadmin -o media-source-default sets it
        chosenKeyword = QString::fromUtf8(
            cupsGetOption("media-source", printer.dest->num_options, printer.dest->options));
    if (chosenKeyword.isEmpty()) {
        ipp_attribute_t *chosen = cupsFindDestDefault(http, printer.dest, printer.info.get(),
                                                      "media-source");
        chosenKeyword = QString::fromUtf8(chosen ? ippGetString(chosen, 0, nullptr) : "");
    }
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QByteArray keyword = names[i].keyword.toUtf8();
        const char *localized = cupsLocalizeDestValue(http, printer.dest, printer.info.get(),
                                                      "media-source", keyword.constData());
        QString name = QString::fromUtf8(localized ? localized : "");
        if (name.isEmpty() || name == names[i].keyword)
            name = names[i].name;
        result.bins.append({option, names[i].keyword, name, codes[i]});
        if (names[i].keyword == chosenKeyword)
            result.defaultBinCode = codes[i];
    }
}

// The custom sheets a driverless printer takes, from the "custom_min_..." and
// "custom_max_..." names among its media.
void readIppCustomRange(const IppPrinter &printer, CupsQueue &result)
{
    ipp_attribute_t *media = cupsFindDestSupported(printer.http.get(), printer.dest,
                                                   printer.info.get(), "media");
    for (int i = 0; i < ippGetCount(media); ++i) {
        const char *name = ippGetString(media, i, nullptr);
        const pwg_media_t *size = name ? pwgMediaForPWG(name) : nullptr;
        if (!size)
            continue;
        const QSizeF points(hundredthsToPoints(size->width), hundredthsToPoints(size->length));
        if (qstrncmp(name, "custom_min_", 11) == 0)
            result.customMin = points;
        else if (qstrncmp(name, "custom_max_", 11) == 0)
            result.customMax = points;
    }
    if (result.customMin.isEmpty() || result.customMax.isEmpty())
        result.customMin = result.customMax = QSizeF();
}

// The printer's media database: each sheet by its IPP name ("na_letter_8.5x11in"), with its
// exact dimensions and margins. A borderless sheet shares its name with its bordered twin
// and differs only by its margins, which is why jobs name sheets in "media-col".
void readIppSizes(const IppPrinter &printer, const DefaultMedia &defaults, CupsQueue &result)
{
    http_t *http = printer.http.get();
    const unsigned flags = CUPS_MEDIA_FLAGS_DEFAULT;
    const int count = cupsGetDestMediaCount(http, printer.dest, printer.info.get(), flags);
    for (int i = 0; i < count; ++i) {
        cups_size_t media{};
        if (!cupsGetDestMediaByIndex(http, printer.dest, printer.info.get(), i, flags, &media))
            continue;
        CupsPaperSize entry;
        entry.keyword = QString::fromUtf8(media.media);
        entry.points = QSizeF(hundredthsToPoints(media.width), hundredthsToPoints(media.length));
        if (!isSheet(entry.points))
            continue;
        const char *localized = cupsLocalizeDestMedia(http, printer.dest, printer.info.get(), flags,
                                                      &media);
        entry.name = localized && *localized ? QString::fromUtf8(localized) : entry.keyword;
        entry.unprintable = QMarginsF(hundredthsToPoints(media.left), hundredthsToPoints(media.top),
                                      hundredthsToPoints(media.right),
                                      hundredthsToPoints(media.bottom));
        result.sizes.append(entry);
    }
    // Borderless sheets after the others, as drivers list them, so that the first sheet of
    // a size is the one printed with the printer's margins (the database is sorted by size).
    std::stable_partition(result.sizes.begin(), result.sizes.end(),
                          [](const CupsPaperSize &size) { return !size.unprintable.isNull(); });
    numberSizes(result.sizes);
    result.mediaType = defaults.type;
    readIppCustomRange(printer, result);
    // The default sheet by its size and margins, which tell a borderless twin apart; else by
    // its size alone; else by the printer's default name. The destination API's default
    // would fall back to the sheet of the user's locale.
    const CupsPaperSize *chosen = findFirst(result.sizes, [&](const CupsPaperSize &size) {
        return size.points == defaults.points && size.unprintable == defaults.margins;
    });
    if (!chosen)
        chosen = findFirst(result.sizes, [&](const CupsPaperSize &size) {
            return size.points == defaults.points; // the same hundredths of a millimetre
        });
    if (!chosen) {
        ipp_attribute_t *media = cupsFindDestDefault(http, printer.dest, printer.info.get(),
                                                     "media");
        const QString keyword = QString::fromUtf8(media ? ippGetString(media, 0, nullptr) : "");
        chosen = findFirst(result.sizes,
                           [&](const CupsPaperSize &size) { return size.keyword == keyword; });
    }
    result.defaultSizeCode = chosen ? chosen->code : 0;
}

// Sizes and bins from the printer's IPP attributes, as a printer without a PPD (a driverless
// one) is read; nothing when the server cannot be reached or gives no attributes.
void readIpp(cups_dest_t *dest, CupsQueue &result)
{
    IppPrinter printer{Http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC,
                                         cupsEncryption(), 1, 30000, nullptr)),
                       dest, nullptr};
    if (!printer.http) {
        qCWarning(lcPrinters) << "cannot reach the print server for" << dest->name << "-"
                              << cupsError();
        return;
    }
    printer.info.reset(cupsCopyDestInfo(printer.http.get(), dest));
    if (!printer.info) {
        qCWarning(lcPrinters) << "no IPP attributes for" << dest->name << "-" << cupsError();
        return;
    }
    const DefaultMedia defaults = readDefaultMedia(
        cupsFindDestDefault(printer.http.get(), dest, printer.info.get(), "media-col"));
    readIppBins(printer, defaults, result);
    readIppSizes(printer, defaults, result);
}

// A job's "media-col" for a driverless printer: the sheet exactly as the printer listed it,
// margins included (zero for a borderless one), the source and the printer's default type.
QString mediaCol(const CupsPaperSize *size, const CupsPaperBin *bin, const QString &type)
{
    QStringList members;
    if (size) {
        const auto length = [](double points) {
            return QString::number(pointsToHundredths(points));
        };
        members << QStringLiteral("media-size={x-dimension=%1 y-dimension=%2}")
                       .arg(length(size->points.width()), length(size->points.height()))
                << QStringLiteral("media-top-margin=") + length(size->unprintable.top())
                << QStringLiteral("media-bottom-margin=") + length(size->unprintable.bottom())
                << QStringLiteral("media-left-margin=") + length(size->unprintable.left())
                << QStringLiteral("media-right-margin=") + length(size->unprintable.right());
    }
    if (bin && !bin->keyword.isEmpty())
        members << QStringLiteral("media-source=") + bin->keyword;
    if (!type.isEmpty() && !members.isEmpty())
        members << QStringLiteral("media-type=") + type;
    return members.isEmpty() ? QString() : u'{' + members.join(u' ') + u'}';
}

template <typename T> const T *byCodeOrFirst(const QList<T> &list, int code)
{
    const T *found = findFirst(list, [&](const T &item) { return item.code == code; });
    return found || list.isEmpty() ? found : &list.first();
}

} // namespace

const CupsPaperBin *CupsQueue::binByCode(int code) const
{
    return findFirst(bins, [&](const CupsPaperBin &bin) { return bin.code == code; });
}

const CupsPaperSize *CupsQueue::storedSize(int code, const QSizeF &points) const
{
    const qsizetype index = FindStoredPaper(
        sizes, code, points, [](const CupsPaperSize &size) { return size.points; },
        [](const CupsPaperSize &size) { return size.code; });
    return index < 0 ? nullptr : &sizes[index];
}

const CupsPaperSize *CupsQueue::defaultSize() const
{
    return byCodeOrFirst(sizes, defaultSizeCode);
}

const CupsPaperBin *CupsQueue::defaultBin() const { return byCodeOrFirst(bins, defaultBinCode); }

CupsOptions CupsQueue::jobOptions(const CupsPaperSize *size, const CupsPaperBin *bin) const
{
    CupsOptions options;
    if (!hasPpd) {
        // cupsd and driverless printers take the source and a borderless sheet only inside
        // "media-col"; a plain "media-source" is ignored and "media" names no margins.
        const QString media = mediaCol(size, bin, mediaType);
        if (!media.isEmpty())
            options.append({QStringLiteral("media-col"), media});
        return options;
    }
    if (size) {
        options.append({QStringLiteral("media"), size->keyword});
        options.append({QStringLiteral("PageSize"), size->keyword});
    }
    if (!bin)
        return options;
    if (!bin->option.isEmpty()) // the automatic bin of a printer without trays has none
        options.append({bin->option, bin->keyword});
    if (hasManualFeedOption && bin->option != manualFeed)
        options.append({manualFeed, QStringLiteral("False")});
    return options;
}

CupsQueue ReadCupsQueue(const QString &queue, CupsQueueSource source)
{
    CupsQueue result;
    const QByteArray name = queue.toUtf8();
    if (name.isEmpty())
        return result;
    cups_dest_t *dest = cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.constData(), nullptr);
    if (!dest) {
        qCWarning(lcPrinters) << "no queue" << name << "-" << cupsError();
        return result;
    }
    result.found = true;
    readState(dest, result);
    if (source == CupsQueueSource::PrinterAttributes || !readPpd(name, dest, result))
        readIpp(dest, result);
    cupsFreeDests(1, dest);
    return result;
}

QStringList ReadCupsQueueNames()
{
    ipp_t *request = ippNewRequest(IPP_OP_CUPS_GET_PRINTERS);
    ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
                 "printer-name");
    ipp_t *response = cupsDoRequest(CUPS_HTTP_DEFAULT, request, "/");
    if (!response || ippGetStatusCode(response) > IPP_STATUS_OK_CONFLICTING)
        qCWarning(lcPrinters) << "cannot list the printers -" << cupsError();
    QStringList names;
    for (ipp_attribute_t *a = ippFindAttribute(response, "printer-name", IPP_TAG_NAME); a;
         a = ippFindNextAttribute(response, "printer-name", IPP_TAG_NAME))
        names.append(QString::fromUtf8(ippGetString(a, 0, nullptr)));
    ippDelete(response);
    std::sort(names.begin(), names.end(), [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return names;
}

QString ReadCupsDefaultQueue()
{
    cups_dest_t *dest = cupsGetNamedDest(CUPS_HTTP_DEFAULT, nullptr, nullptr);
    const QString name = dest ? QString::fromUtf8(dest->name) : QString();
    cupsFreeDests(dest ? 1 : 0, dest);
    return name;
}

int SubmitCupsJob(const QString &queue, const QString &file, const QString &title,
                  const CupsOptions &options)
{
    int count = 0;
    cups_option_t *list = nullptr;
    for (const auto &[option, value] : options)
        count = cupsAddOption(option.toUtf8().constData(), value.toUtf8().constData(), count,
                              &list);
    const int job = cupsPrintFile2(CUPS_HTTP_DEFAULT, queue.toUtf8().constData(),
                                   QFile::encodeName(file).constData(), title.toUtf8().constData(),
                                   count, list);
    cupsFreeOptions(count, list);
    if (job == 0)
        qCWarning(lcPrinters) << "cannot print" << file << "on" << queue << "-" << cupsError();
    return job;
}

} // namespace bravcpl5
