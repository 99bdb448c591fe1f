// The options a job carries for a size and a bin, on the kinds of queue there are.

#include "printers/CupsQueue.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

std::string texts(const CupsOptions &options)
{
    QStringList list;
    for (const auto &[option, value] : options)
        list << option + u'=' + value;
    return list.join(QStringLiteral(", ")).toStdString();
}

TEST(CupsJobOptionsTest, SizeAndTheBinsOwnOptionWithManualFeedOffForOtherBins)
{
    const CupsPaperSize letter{"Letter", "Letter", {612, 792}, {}, 1};
    const CupsPaperBin tray{"InputSlot", "Tray2", "Tray 2", 256};
    const CupsPaperBin manual{"ManualFeed", "True", "Tray 1 (Manual)", 4};
    const CupsPaperBin automatic{"", "", "Automatically Select", 7};
    const CupsPaperBin roll{"HPPaperSource", "Roll1", "Roll 1", 256};
    const struct {
        const char *name;
        bool ppd, manualFeedOption;
        const CupsPaperSize *size;
        const CupsPaperBin *bin;
        const char *options;
    } cases[] = {
        {"tray", true, false, &letter, &tray, "media=Letter, PageSize=Letter, InputSlot=Tray2"},
        {"tray beside a manual feed switch", true, true, &letter, &tray,
         "media=Letter, PageSize=Letter, InputSlot=Tray2, ManualFeed=False"},
        {"the manual feed switch", true, true, &letter, &manual,
         "media=Letter, PageSize=Letter, ManualFeed=True"},
        {"automatic with only a switch", true, true, &letter, &automatic,
         "media=Letter, PageSize=Letter, ManualFeed=False"},
        {"automatic on a label printer", true, false, &letter, &automatic,
         "media=Letter, PageSize=Letter"},
        {"the driver's own source", true, false, nullptr, &roll, "HPPaperSource=Roll1"},
        {"nothing", true, true, nullptr, nullptr, ""},
    };
    for (const auto &c : cases) {
        CupsQueue queue;
        queue.found = true;
        queue.hasPpd = c.ppd;
        queue.hasManualFeedOption = c.manualFeedOption;
        EXPECT_EQ(texts(queue.jobOptions(c.size, c.bin)), c.options) << c.name;
    }
}

// A driverless printer takes the sheet and the source only inside "media-col": the sheet
// exactly as listed (hundredths of a millimetre), margins included, so that a borderless
// sheet prints borderless, and the printer's default type where it names one.
TEST(CupsJobOptionsTest, DriverlessQueuesGetTheWholeChoiceInMediaCol)
{
    const CupsPaperSize a4{"iso_a4_210x297mm", "A4", {595.2756, 841.8898}, {12, 12, 12, 14.17}, 9};
    const CupsPaperSize borderless{"iso_a4_210x297mm", "A4 (Borderless)", a4.points, {}, 256};
    const CupsPaperBin tray{"media-source", "tray-2", "Tray 2", 256};
    const CupsPaperBin automatic{"", "", "Automatically Select", 7};
    const struct {
        const char *name;
        const CupsPaperSize *size;
        const CupsPaperBin *bin;
        const char *type;
        const char *options;
    } cases[] = {
        {"sheet and tray", &a4, &tray, "",
         "media-col={media-size={x-dimension=21000 y-dimension=29700} media-top-margin=423 "
         "media-bottom-margin=500 media-left-margin=423 media-right-margin=423 "
         "media-source=tray-2}"},
        {"borderless with the default type", &borderless, &tray, "stationery",
         "media-col={media-size={x-dimension=21000 y-dimension=29700} media-top-margin=0 "
         "media-bottom-margin=0 media-left-margin=0 media-right-margin=0 media-source=tray-2 "
         "media-type=stationery}"},
        {"the automatic bin names no source", &a4, &automatic, "",
         "media-col={media-size={x-dimension=21000 y-dimension=29700} media-top-margin=423 "
         "media-bottom-margin=500 media-left-margin=423 media-right-margin=423}"},
        {"a source alone", nullptr, &tray, "", "media-col={media-source=tray-2}"},
        {"nothing", nullptr, &automatic, "stationery", ""},
    };
    for (const auto &c : cases) {
        CupsQueue queue;
        queue.found = true;
        queue.mediaType = QString::fromUtf8(c.type);
        EXPECT_EQ(texts(queue.jobOptions(c.size, c.bin)), c.options) << c.name;
    }
}

} // namespace
