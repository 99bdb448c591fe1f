// Jobs to the sandbox's real-PPD queues as a client without the PPD (a driverless printer)
// sends them: cupsd turns each job's "media-col" into the PPD's own options, as it does for
// any IPP printer, and the job must reach the source and the sheet that were chosen. The
// jobs are raw, so that cupsd maps them without running the drivers.

#include "printers/CupsQueue.h"
#include "support/PpdText.h"
#include "support/SandboxCups.h"

#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <cmath>
#include <gtest/gtest.h>

using namespace bravcpl5;
using namespace bravcpl5::test;

namespace {

class DriverlessJobTest : public ::testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_CUPSD();
        ppd = ReadQueuePpd(queue());
        if (!ppd.found)
            GTEST_SKIP() << "queue not in the sandbox (driver package missing)";
        read = ReadCupsQueue(queue(), CupsQueueSource::PrinterAttributes);
        ASSERT_TRUE(read.found && !read.hasPpd);
        document = folder.filePath(QStringLiteral("job.txt"));
        QFile file(document);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write("job\n") == 4);
    }
    QString queue() const { return QString::fromUtf8(GetParam()); }

    // Sends one raw job per choice, all before waiting for any, and gives back the options
    // cupsd gave each job.
    QList<QHash<QString, QString>> print(const QList<CupsOptions> &jobs)
    {
        QList<int> ids;
        for (CupsOptions options : jobs) {
            options.append({QStringLiteral("raw"), QStringLiteral("true")});
            ids.append(SubmitCupsJob(queue(), document, QStringLiteral("driverless"), options));
        }
        QList<QHash<QString, QString>> mapped;
        for (const int id : std::as_const(ids))
            mapped.append(id > 0 ? JobFilterOptions(id) : QHash<QString, QString>());
        return mapped;
    }

    QTemporaryDir folder;
    QString document;
    PpdText ppd;
    CupsQueue read;
};

// Every source the printer lists prints from its own tray: the PPD's source option gets one
// of its own choices, a different one for every source.
TEST_P(DriverlessJobTest, EverySourcePrintsFromItsTray)
{
    QList<const CupsPaperBin *> bins;
    QList<CupsOptions> jobs;
    for (const CupsPaperBin &bin : read.bins) {
        if (bin.keyword.isEmpty())
            continue; // the bin of a printer without sources to choose
        bins.append(&bin);
        jobs.append(read.jobOptions(read.defaultSize(), &bin));
    }
    if (bins.isEmpty())
        GTEST_SKIP() << "no sources to choose";
    const QList<QHash<QString, QString>> mapped = print(jobs);
    QSet<QString> reached;
    for (qsizetype i = 0; i < bins.size(); ++i) {
        const std::string bin = bins[i]->keyword.toStdString();
        QString source;
        for (const PpdOption &option : ppd.options) {
            if (mapped[i].contains(option.keyword)
                && (option.keyword == QLatin1String("InputSlot")
                    || option.keyword.contains(QLatin1String("PaperSource"))))
                source = option.keyword + u'=' + mapped[i].value(option.keyword);
        }
        ASSERT_FALSE(source.isEmpty()) << bin << " reached no source";
        const PpdOption *option = ppd.option(source.section(u'=', 0, 0));
        EXPECT_TRUE(option->choice(source.section(u'=', 1))) << bin << " " << source.toStdString();
        EXPECT_FALSE(reached.contains(source)) << bin << " " << source.toStdString();
        reached.insert(source);
    }
}

// Every sheet the printer lists prints on the PPD's sheet of its size and margins: a
// borderless one on the full-bleed size, the bordered twin on the bordered size. cupsd
// takes the first sheet within 0.64 mm of the size asked for, so of two sheets closer
// than that (8.5 x 13 in and 8.5 x 12.99 in) the first prints.
TEST_P(DriverlessJobTest, EverySheetPrintsOnItsPageSize)
{
    QList<CupsOptions> jobs;
    for (const CupsPaperSize &size : read.sizes)
        jobs.append(read.jobOptions(&size, nullptr));
    const QList<QHash<QString, QString>> mapped = print(jobs);
    const auto near = [](double a, double b) { return std::abs(a - b) < 64 * 72 / 2540.0; };
    for (qsizetype i = 0; i < read.sizes.size(); ++i) {
        const CupsPaperSize &size = read.sizes[i];
        const QString pageSize = mapped[i].value(QStringLiteral("PageSize"));
        const std::string sheet = size.keyword.toStdString() + " " + size.name.toStdString();
        ASSERT_TRUE(ppd.dimensions.contains(pageSize)) << sheet << " on " << pageSize.toStdString();
        const QSizeF points = ppd.dimensions.value(pageSize);
        EXPECT_TRUE(near(points.width(), size.points.width())
                    && near(points.height(), size.points.height()))
            << sheet << " on " << pageSize.toStdString();
        const QRectF area = ppd.imageableAreas.value(pageSize);
        const bool fullBleed = near(area.left(), 0) && near(area.top(), 0)
                               && near(area.right(), points.width())
                               && near(area.bottom(), points.height());
        EXPECT_EQ(fullBleed, size.unprintable.isNull())
            << sheet << " on " << pageSize.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Sandbox, DriverlessJobTest, ::testing::ValuesIn(RealQueues),
                         [](const auto &info) { return QueueTestName(info.param); });

} // namespace
