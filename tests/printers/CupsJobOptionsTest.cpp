// The options a job carries for a size and a bin, on the kinds of queue there are.

#include "printers/CupsQueue.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

QStringList texts(const CupsOptions &options)
{
    QStringList list;
    for (const auto &[option, value] : options)
        list << option + u'=' + value;
    return list;
}

TEST(CupsJobOptionsTest, SizeAndTheBinsOwnOptionWithManualFeedOffForOtherBins)
{
    const CupsPaperSize letter{"Letter", "Letter", {612, 792}, {}, 1};
    const CupsPaperBin tray{"InputSlot", "Tray2", "Tray 2", 256};
    const CupsPaperBin manual{"ManualFeed", "True", "Tray 1 (Manual)", 4};
    const CupsPaperBin automatic{"", "", "Automatically Select", 7};
    const CupsPaperBin roll{"HPPaperSource", "Roll1", "Roll 1", 256};
    const CupsPaperBin source{"media-source", "by-pass-tray", "By pass tray", 4};
    const struct {
        const char *name;
        bool ppd, manualFeedOption;
        const CupsPaperSize *size;
        const CupsPaperBin *bin;
        QStringList options;
    } cases[] = {
        {"tray",
         true,
         false,
         &letter,
         &tray,
         {"media=Letter", "PageSize=Letter", "InputSlot=Tray2"}},
        {"tray beside a manual feed switch",
         true,
         true,
         &letter,
         &tray,
         {"media=Letter", "PageSize=Letter", "InputSlot=Tray2", "ManualFeed=False"}},
        {"the manual feed switch",
         true,
         true,
         &letter,
         &manual,
         {"media=Letter", "PageSize=Letter", "ManualFeed=True"}},
        {"automatic with only a switch",
         true,
         true,
         &letter,
         &automatic,
         {"media=Letter", "PageSize=Letter", "ManualFeed=False"}},
        {"automatic on a label printer",
         true,
         false,
         &letter,
         &automatic,
         {"media=Letter", "PageSize=Letter"}},
        {"the driver's own source", true, false, nullptr, &roll, {"HPPaperSource=Roll1"}},
        {"no PPD", false, false, &letter, &source, {"media=Letter", "media-source=by-pass-tray"}},
        {"nothing", true, true, nullptr, nullptr, {}},
    };
    for (const auto &c : cases) {
        CupsQueue queue;
        queue.found = true;
        queue.hasPpd = c.ppd;
        queue.hasManualFeedOption = c.manualFeedOption;
        EXPECT_EQ(texts(queue.jobOptions(c.size, c.bin)), c.options) << c.name;
    }
}

} // namespace
