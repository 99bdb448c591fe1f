// Queues made from PPDs no driver package would ship: sizes without dimensions or with
// nonsense ones, source options without choices or of the wrong kind, repeated keywords,
// huge lists and texts. The printer information lists what can be printed on, with unique
// codes, and never fails.

#include "printers/PrinterInfo.h"
#include "support/SandboxCups.h"

#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace bravcpl5::test {
namespace {

const QByteArray header =
    "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
    "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"HOSTILE.PPD\"\n"
    "*Manufacturer: \"Test\"\n*Product: \"(Hostile)\"\n*ModelName: \"Hostile\"\n"
    "*ShortNickName: \"Hostile\"\n*NickName: \"Hostile\"\n*PSVersion: \"(3010.000) 0\"\n"
    "*cupsFilter2: \"application/pdf application/pdf 0 gziptoany\"\n";

QByteArray pageSizes(const QList<std::pair<QByteArray, QByteArray>> &sizes) // keyword, dimensions
{
    QByteArray ppd = "*OpenUI *PageSize/Media Size: PickOne\n*DefaultPageSize: "
                     + sizes.first().first + "\n";
    for (const auto &[keyword, dims] : sizes)
        ppd += "*PageSize " + keyword + "/" + keyword + ": \"\"\n";
    ppd += "*CloseUI: *PageSize\n";
    for (const auto &[keyword, dims] : sizes) {
        if (!dims.isEmpty())
            ppd += "*PaperDimension " + keyword + "/" + keyword + ": \"" + dims + "\"\n";
    }
    return ppd;
}

QByteArray manySizes(int count)
{
    QList<std::pair<QByteArray, QByteArray>> sizes;
    for (int i = 0; i < count; ++i)
        sizes.append({"S" + QByteArray::number(i), QByteArray::number(72 + i % 500) + " 144"});
    return pageSizes(sizes);
}

struct HostilePpd {
    const char *name;
    QByteArray body;
    int sizes; // that can be printed on
    int bins;
};

void PrintTo(const HostilePpd &c, std::ostream *os) { *os << c.name; }

class HostilePpdQueueTest : public ::testing::TestWithParam<HostilePpd>
{
protected:
    void SetUp() override
    {
        SKIP_WITHOUT_CUPSD();
        QFile file(folder.filePath(QStringLiteral("hostile.ppd")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(header + GetParam().body);
        file.close();
        QProcess lpadmin;
        lpadmin.start(QStringLiteral("lpadmin"),
                      {QStringLiteral("-p"), queue, QStringLiteral("-E"), QStringLiteral("-v"),
                       QStringLiteral("file:///dev/null"), QStringLiteral("-P"), file.fileName()});
        if (!lpadmin.waitForFinished(30000) || lpadmin.exitCode() != 0)
            GTEST_SKIP() << "cupsd refused the PPD: "
                         << lpadmin.readAllStandardError().toStdString();
    }
    void TearDown() override
    {
        QProcess::execute(QStringLiteral("lpadmin"), {QStringLiteral("-x"), queue});
    }

    // A queue of the case's own: ctest runs cases side by side.
    const QString queue = QStringLiteral("Hostile-%1").arg(QLatin1String(GetParam().name));
    QTemporaryDir folder;
};

TEST_P(HostilePpdQueueTest, ListsWhatCanBePrintedOnWithUniqueCodes)
{
    const PrinterPaper paper = CreateSystemPrinterInfo()->paper(queue);
    QSet<int> codes;
    for (const PaperSizeInfo &size : paper.sizes) {
        EXPECT_GT(size.widthTwips, 0) << size.name.toStdString();
        EXPECT_GT(size.heightTwips, 0) << size.name.toStdString();
        codes.insert(size.code);
    }
    EXPECT_EQ(paper.sizes.size(), GetParam().sizes);
    EXPECT_EQ(codes.size(), paper.sizes.size());
    codes.clear();
    for (const PaperBinInfo &bin : paper.bins)
        codes.insert(bin.code);
    EXPECT_EQ(paper.bins.size(), GetParam().bins);
    EXPECT_EQ(codes.size(), paper.bins.size());
}

INSTANTIATE_TEST_SUITE_P(
    Sandbox, HostilePpdQueueTest,
    ::testing::Values(
        HostilePpd{"SizesWithoutOrWithNonsenseDimensions",
                   pageSizes({{"Letter", "612 792"},
                              {"NoDims", ""},
                              {"Zero", "0 0"},
                              {"Negative", "-612 792"},
                              {"Words", "wide tall"},
                              {"Huge", "1e308 1e308"}}),
                   1, 1},
        HostilePpd{"InputSlotWithoutChoicesAndManualFeedOfTheWrongKind",
                   pageSizes({{"A4", "595 842"}})
                       + "*OpenUI *InputSlot/Source: PickOne\n*DefaultInputSlot: None\n*CloseUI: "
                         "*InputSlot\n"
                         "*OpenUI *ManualFeed/Manual: PickOne\n*DefaultManualFeed: On\n*ManualFeed "
                         "On/On: \"\"\n"
                         "*ManualFeed Off/Off: \"\"\n*CloseUI: *ManualFeed\n",
                   1, 1},
        HostilePpd{
            "OnlyAManualFeedSwitchStillHasTheAutomaticBin",
            pageSizes({{"A4", "595 842"}})
                + "*OpenUI *ManualFeed/Manual Feed: Boolean\n*DefaultManualFeed: False\n"
                  "*ManualFeed True/On: \"\"\n*ManualFeed False/Off: \"\"\n*CloseUI: *ManualFeed\n",
            1, 2},
        HostilePpd{"RepeatedSlotsAndSizes",
                   pageSizes({{"A4", "595 842"}, {"A4", "595 842"}, {"A4Copy", "595 842"}})
                       + "*OpenUI *InputSlot/Source: PickOne\n*DefaultInputSlot: Manual\n"
                         "*InputSlot Manual/Manual: \"\"\n*InputSlot Manual/Manual again: \"\"\n"
                         "*InputSlot ManualFeed/Manual Feed: \"\"\n*CloseUI: *InputSlot\n",
                   2, 3},
        HostilePpd{"TwoThousandSizesAndLongNames",
                   manySizes(2000)
                       + "*OpenUI *InputSlot/Source: PickOne\n*DefaultInputSlot: T\n*InputSlot T/"
                       + QByteArray(200, 'x') + ": \"\"\n*CloseUI: *InputSlot\n",
                   2000, 1}),
    [](const auto &info) { return std::string(info.param.name); });

} // namespace
} // namespace bravcpl5::test
