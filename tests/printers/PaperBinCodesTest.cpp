#include "printers/PaperBinCodes.h"

#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

// Keywords and names as real drivers and IPP printers write them.
TEST(StandardBinCodeTest, KeywordFirstThenTheDriversName)
{
    const struct {
        const char *keyword;
        const char *name;
        int code;
    } cases[] = {{"Upper", "", 1},
                 {"top", "", 1},
                 {"Upper", "MP Tray", 1},
                 {"Lower", "Tray 3", 2},
                 {"bottom", "", 2},
                 {"Middle", "", 3},
                 // Manual feed in its many spellings, and the trays fed by hand.
                 {"Manual", "Single sheet", 4},
                 {"ManualFeed", "Manual Feed", 4},
                 {"manual-feed", "", 4},
                 {"Tray1_Man", "Tray 1 (Manual)", 4},
                 {"X1", "Tray 1 (Manual)", 4},
                 {"MF", "Papierzufuhr Handeinzug", 4},
                 {"ManualPaper", "Manual Paper", 4},
                 {"SheetFeedBypass", "Bypass Tray", 4},
                 {"by-pass-tray", "", 4},
                 {"MPT", "Multi Purpose Tray", 4},
                 {"Front", "Multi-Purpose Tray", 4},
                 {"MSI", "MP Tray", 4},
                 // Kyocera's multi-purpose tray, fed by hand: the manual feed unless its
                 // drivers also list "MF" (see below).
                 {"MF1", "Mehrzweckzufuhr", 4},
                 {"MF1", "Bandeja manual", 4},
                 {"mf-2", "", 4},
                 {"MultiTray", "Paper Bypass", 4},         // Ricoh
                 {"OneMulti", "One Sheet Bypass Tray", 4}, // Ricoh
                 // A word that says manual in the driver's language: English (Epson EPL),
                 // then the names of localized PPDs (Kyocera, HP, Lexmark).
                 {"ManualAll", "Manual Feed Each Page", 4},
                 {"X1", "Alimentation manuelle", 4},
                 {"X1", "Alimentazione manuale", 4},
                 {"X1", "Zufuhrfach 1 (Manuell)", 4},
                 {"X1", "Lade 1 (Handmatig)", 4},
                 {"X1", "Käsinsyöttö", 4},
                 {"X1", "Ręczny podajnik papieru", 4},
                 {"X1", "Ruční podavač", 4}, // no Czech PPD in Debian; the usual words
                 {"X1", "Лоток 1 (вручную)", 4},
                 {"X1", "手差しトレイ", 4},
                 {"X1", "纸盒 1（手动）", 4},
                 {"X1", "1 號紙匣 (手動)", 4},
                 {"X1", "용지함 1(수동)", 4},
                 {"X1", "تغذية الورق يدويًا", 4},
                 // Envelopes.
                 {"Envelope", "Envelope Feeder", 5},
                 {"EnvelopeFeeder", "Envelope Feeder", 5},
                 {"EF1", "", 5},
                 {"ManualEnv", "Manual Envelope", 6},
                 {"EnvelopeManual", "", 6},
                 {"X1", "Sobre manual", 6},
                 {"X1", "Briefumschlag manuell", 6},
                 {"X1", "Ręczny kopert", 6},
                 {"X1", "Конверт вручную", 6},
                 {"X1", "手差し封筒", 6},
                 // Automatic selection.
                 {"Auto", "Automatic", 7},
                 {"AutoSelect", "Auto Select", 7},
                 {"Autoselect", "Printer Auto Select", 7},
                 {"AutomaticallySelect", "Automatically Select", 7},
                 {"auto", "", 7},
                 // Continuous media, capacity, cassettes.
                 {"Tractor", "", 8},
                 {"Roll", "Roll 1", 8},
                 {"SmallFormat", "", 9},
                 {"LargeFormat", "", 10},
                 {"LargeCapacity", "Tray 4", 11},
                 {"large-capacity", "", 11},
                 {"LCT", "LCT", 11},
                 {"LCF", "LCF", 11},
                 {"Cassette", "Paper Cassette", 14},
                 {"FormSource", "", 15},
                 {"form_source", "", 15},
                 // Bins without a standard code: numbered trays, rolls, German-only names.
                 {"Tray1", "Tray 1", 0},
                 {"Tray_2", "Tray 2", 0},
                 {"Roll1", "Front Roll", 0},
                 {"roll-1", "", 0},
                 {"Internal", "Kassette 1 (Intern)", 0},
                 {"", "", 0},
                 {"Uppers", "", 0},
                 // Ways of printing by hand, not sources: the first page only (Epson EPL),
                 // manual duplex.
                 {"ManualFirst", "Manual Feed 1st Page", 0},
                 {"ManualDuplex", "Manual Duplex", 0}};
    for (const auto &c : cases)
        EXPECT_EQ(StandardPaperBinCode({QString::fromUtf8(c.keyword), QString::fromUtf8(c.name)}),
                  c.code)
            << c.keyword << " / " << c.name;
}

TEST(NumberPaperBinsTest, GivesOtherBinsCodesFrom256InTheirOrder)
{
    const QList<int> codes = NumberPaperBins({{"Tray3", "Tray 3"},
                                              {"Upper", ""},
                                              {"Roll1", "Roll 1"},
                                              {"top", ""},
                                              {"Manual", ""},
                                              {"ManualFeed", "Manual Feed"}});
    // "top" is the upper bin again, and a ManualFeed option beside a manual slot is another
    // manual bin; a second bin cannot share the code.
    EXPECT_EQ(codes, QList<int>({256, 1, 257, 258, 4, 259}));
}

// A multi-purpose or bypass tray is the manual bin unless a bin says manual, even a later one.
TEST(NumberPaperBinsTest, TraysFedByHandGiveWayToABinCalledManual)
{
    EXPECT_EQ(NumberPaperBins({{"Tray1", "Tray 1"},
                               {"MultipurposeFeeder", "Multipurpose Feeder"},
                               {"ManualPaper", "Manual Paper"},
                               {"ManualEnv", "Manual Envelope"}}),
              QList<int>({256, 257, 4, 6}));
    EXPECT_EQ(NumberPaperBins(
                  {{"Tray1", "Tray 1"}, {"MF1", "Bypass tray"}, {"Cassette", "Paper Cassette"}}),
              QList<int>({256, 4, 14}));
    // Epson's laser drivers: the MP tray gives way to feeding each page by hand.
    EXPECT_EQ(NumberPaperBins({{"MSI", "MP Tray"},
                               {"Top", "Cassette 1"},
                               {"Lower", "Cassette 2"},
                               {"ManualFirst", "Manual Feed 1st Page"},
                               {"ManualAll", "Manual Feed EachPage"}}),
              QList<int>({256, 1, 2, 257, 4}));
}

} // namespace
