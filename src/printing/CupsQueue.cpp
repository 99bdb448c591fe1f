#include "printing/CupsQueue.h"

#include "printing/PaperBinCodes.h"

#include <QFile>
#include <cups/cups.h>
#include <cups/ppd.h>
#include <algorithm>
#include <cmath>
#include <memory>

namespace bravcpl5 {

namespace {

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

bool readPpd(const QByteArray &queue, const cups_dest_t *dest, CupsQueue &result)
{
    PpdFile ppd = openPpd(queue);
    if (!ppd)
        return false;
    result.binOption = QStringLiteral("InputSlot");
    if (const ppd_option_t *inputSlot = ppdFindOption(ppd.get(), "InputSlot")) {
        QStringList keywords;
        for (int i = 0; i < inputSlot->num_choices; ++i)
            keywords.append(QString::fromUtf8(inputSlot->choices[i].choice));
        const QList<int> codes = NumberPaperBins(keywords);
        for (int i = 0; i < inputSlot->num_choices; ++i) {
            const QString text = QString::fromUtf8(inputSlot->choices[i].text);
            result.bins.append({keywords[i], text.isEmpty() ? keywords[i] : text, codes[i]});
        }
        // The queue's own default (lpadmin -o InputSlot=...) outranks the driver's.
        const char *chosen = cupsGetOption("InputSlot", dest->num_options, dest->options);
        result.defaultBin = QString::fromUtf8(chosen ? chosen : inputSlot->defchoice);
    }
    const char *size = cupsGetOption("PageSize", dest->num_options, dest->options);
    ppd_option_t *sizes = ppdFindOption(ppd.get(), "PageSize");
    result.defaultSize = QString::fromUtf8(size ? size : sizes ? sizes->defchoice : "");
    for (int i = 0; i < ppd->num_sizes; ++i) {
        const ppd_size_t &paper = ppd->sizes[i];
        if (qstrcmp(paper.name, "Custom") == 0)
            continue;
        CupsPaperSize entry;
        entry.keyword = QString::fromUtf8(paper.name);
        const ppd_choice_t *choice = sizes ? ppdFindChoice(sizes, paper.name) : nullptr;
        entry.name = choice && choice->text[0] ? QString::fromUtf8(choice->text) : entry.keyword;
        entry.points = QSizeF(paper.width, paper.length);
        // The imageable area is given by its corners, from the bottom left.
        entry.unprintable = QMarginsF(paper.left, paper.length - paper.top,
                                      paper.width - paper.right, paper.bottom);
        result.sizes.append(entry);
    }
    return true;
}

#pragma GCC diagnostic pop

// "tray-1" reads as "Tray 1".
QString keywordToName(const QString &keyword)
{
    QString name = keyword;
    name.replace(QLatin1Char('-'), QLatin1Char(' '));
    if (!name.isEmpty())
        name[0] = name[0].toUpper();
    return name;
}

void readIpp(cups_dest_t *dest, CupsQueue &result)
{
    result.binOption = QStringLiteral("media-source");
    cups_dinfo_t *info = cupsCopyDestInfo(CUPS_HTTP_DEFAULT, dest);
    if (!info)
        return;
    ipp_attribute_t *sources = cupsFindDestSupported(CUPS_HTTP_DEFAULT, dest, info, "media-source");
    QStringList keywords;
    for (int i = 0; i < ippGetCount(sources); ++i)
        keywords.append(QString::fromUtf8(ippGetString(sources, i, nullptr)));
    const QList<int> codes = NumberPaperBins(keywords);
    for (int i = 0; i < keywords.size(); ++i) {
        const QByteArray keyword = keywords[i].toUtf8();
        const char *localized = cupsLocalizeDestValue(CUPS_HTTP_DEFAULT, dest, info, "media-source",
                                                      keyword.constData());
        QString name = QString::fromUtf8(localized ? localized : "");
        if (name.isEmpty() || name == keywords[i])
            name = keywordToName(keywords[i]);
        result.bins.append({keywords[i], name, codes[i]});
    }
    if (ipp_attribute_t *chosen = cupsFindDestDefault(CUPS_HTTP_DEFAULT, dest, info, "media-source"))
        result.defaultBin = QString::fromUtf8(ippGetString(chosen, 0, nullptr));
    cupsFreeDestInfo(info);
}

template <typename T, typename Match> const T *findFirst(const QList<T> &list, Match match)
{
    const auto found = std::find_if(list.begin(), list.end(), match);
    return found == list.end() ? nullptr : &*found;
}

} // namespace

const CupsPaperBin *CupsQueue::binByCode(int code) const
{
    return findFirst(bins, [&](const CupsPaperBin &bin) { return bin.code == code; });
}

const CupsPaperBin *CupsQueue::binByKeyword(const QString &keyword) const
{
    return findFirst(bins, [&](const CupsPaperBin &bin) { return bin.keyword == keyword; });
}

const CupsPaperSize *CupsQueue::sizeByPoints(const QSizeF &points) const
{
    return findFirst(sizes, [&](const CupsPaperSize &size) {
        return std::abs(size.points.width() - points.width()) < 1.0
               && std::abs(size.points.height() - points.height()) < 1.0;
    });
}

const CupsPaperSize *CupsQueue::sizeByKeyword(const QString &keyword) const
{
    return findFirst(sizes, [&](const CupsPaperSize &size) { return size.keyword == keyword; });
}

CupsQueue ReadCupsQueue(const QString &queue)
{
    CupsQueue result;
    const QByteArray name = queue.toUtf8();
    if (name.isEmpty())
        return result;
    cups_dest_t *dest = cupsGetNamedDest(CUPS_HTTP_DEFAULT, name.constData(), nullptr);
    if (!dest)
        return result;
    result.found = true;
    if (!readPpd(name, dest, result))
        readIpp(dest, result);
    cupsFreeDests(1, dest);
    return result;
}

int SubmitCupsJob(const QString &queue, const QString &file, const QString &title,
                  const CupsOptions &options)
{
    int count = 0;
    cups_option_t *list = nullptr;
    for (const auto &[option, value] : options)
        count = cupsAddOption(option.toUtf8().constData(), value.toUtf8().constData(), count, &list);
    const int job = cupsPrintFile2(CUPS_HTTP_DEFAULT, queue.toUtf8().constData(),
                                   QFile::encodeName(file).constData(), title.toUtf8().constData(),
                                   count, list);
    cupsFreeOptions(count, list);
    return job;
}

} // namespace bravcpl5
