#include "LayoutFixture.h"

#include "layout/FontTypes.h"
#include "layout/WindowsColor.h"
#include "library/LateBinding.h"
#include "report/ReportLabel.h"

#include <optional>
#include <ostream>

namespace bravcpl5::test {
namespace {

// What a font application can change on a control.
struct ControlState {
    QString name;
    double size;
    bool bold, italic, underline, strikethrough;
    qint32 foreColor;
    bool operator==(const ControlState &) const = default;
};

// Every switch on and an odd face, so that a font that switches them off shows.
const ControlState startState{QStringLiteral("Courier"), 7, true, true, true, true, 255};

void setState(ReportLabel &control, const ControlState &s)
{
    ReportFont *font = control.font();
    font->setProperty("Name", s.name);
    font->setProperty("Size", s.size);
    font->setProperty("Bold", s.bold);
    font->setProperty("Italic", s.italic);
    font->setProperty("Underline", s.underline);
    font->setProperty("Strikethrough", s.strikethrough);
    control.setProperty("ForeColor", s.foreColor);
}

ControlState stateOf(const ReportLabel &control)
{
    const ReportFont *font = control.font();
    return {font->property("Name").toString(),    font->property("Size").toDouble(),
            font->property("Bold").toBool(),      font->property("Italic").toBool(),
            font->property("Underline").toBool(), font->property("Strikethrough").toBool(),
            control.property("ForeColor").toInt()};
}

// The state after a font with Arial, no switches, `size` and black was applied.
ControlState applied(double size, qint32 color = 0, const QString &name = QStringLiteral("Arial"))
{
    return {name, size, false, false, false, false, color};
}

struct FontCase {
    const char *name;
    const char *generalFonts; // the "Font" elements of the general document
    const char *processFonts; // of the process document; null: no process file
    qint16 reportType;
    qint16 fieldType;
    float height;
    std::optional<ControlState> after; // none: the control is unchanged
};

void PrintTo(const FontCase &c, std::ostream *os) { *os << c.name; }

const char *const processFonts = R"(<Font type="15" size="14" bold="1" color="8388608"/>)";

const FontCase fontCases[] = {
    {"OnlyGeneralFile", R"(<Font type="4" size="8"/>)", nullptr, 1, 4, 242, std::nullopt},
    {"ReportTypeTwo", R"(<Font type="4" size="8"/>)", processFonts, 2, 4, 242, std::nullopt},
    {"GeneralFont", R"(<Font type="4" name="Verdana" size="8" italic="1"/>)", processFonts, 1, 4,
     198, ControlState{QStringLiteral("Verdana"), 8, false, true, false, false, 0}},
    {"ProcessFont", "", processFonts, 3, 15, 330,
     ControlState{QStringLiteral("Arial"), 14, true, false, false, false, colorDarkBlue}},
    {"UnknownType", R"(<Font type="4" size="8"/>)", processFonts, 1, 5, 242, std::nullopt},
    {"NoSizeHeightTenAppliesTwelve", R"(<Font type="4"/>)", processFonts, 1, 4, 242, applied(12)},
    {"TypeWithLeadingZeroOnlyApplies", R"(<Font type="010" size="8"/>)", processFonts, 1, 10, 242,
     applied(8)},
    {"TypeNotANumberNeverMatches", R"(<Font type="abc" size="8"/>)", processFonts, 1, 0, 242,
     std::nullopt},
    {"MissingTypeIsZeroWhenApplying", R"(<Font size="8"/>)", processFonts, 1, 0, 242, applied(8)},
    {"BoldTwoIsBold", R"(<Font type="4" bold="2"/>)", processFonts, 1, 4, 242,
     ControlState{QStringLiteral("Arial"), 12, true, false, false, false, 0}},
    {"EmptySwitchesAreOff", R"(<Font type="4" bold="" italic="" underline="" strikeout=""/>)",
     processFonts, 1, 4, 242, applied(12)},
    {"HalfSizeRoundsToEven", R"(<Font type="4" size="10.5"/>)", processFonts, 1, 4, 253,
     applied(10)},
    {"OtherHalfRoundsUp", R"(<Font type="4" size="11.5"/>)", processFonts, 1, 4, 275, applied(12)},
    {"SizeNotANumberKeepsSize", R"(<Font type="4" size="big" bold="1"/>)", processFonts, 1, 4, 242,
     ControlState{QStringLiteral("Arial"), 7, true, false, false, false, 0}},
    {"ColourNotANumberKeepsColour", R"(<Font type="4" size="8" color="blue"/>)", processFonts, 1, 4,
     198, applied(8, startState.foreColor)},
    {"DarkBlue", R"(<Font type="4" size="8" color="8388608"/>)", processFonts, 1, 4, 198,
     applied(8, colorDarkBlue)},
    {"FirstOfTwoWins",
     R"(<Font type="4" size="8" name="First"/><Font type="4" size="14" name="Second"/>)",
     processFonts, 1, 4, 198, applied(8, 0, QStringLiteral("First"))},
    {"FirstWinsByEachRule", R"(<Font type="04" size="8"/><Font type="4" size="14"/>)", processFonts,
     1, 4, 330, applied(8)},
};

class FontLookup : public LayoutFixture, public ::testing::WithParamInterface<FontCase>
{
};

TEST_P(FontLookup, HeightAndAppliedFont)
{
    const FontCase &c = GetParam();
    host.writeSystemFile(QStringLiteral("General Report Fonts.fox"),
                         QByteArray("<?xml version=\"1.0\"?>\n<ReportFonts><GeneralReports>")
                             + c.generalFonts + "</GeneralReports></ReportFonts>");
    if (c.processFonts)
        host.writeUserFile(QStringLiteral("Process Report Fonts.fox"),
                           QByteArray("<ReportFonts><ProcessReports>") + c.processFonts
                               + "</ProcessReports></ReportFonts>");

    EXPECT_EQ(layout()->GetFontHeight(c.reportType, c.fieldType), c.height);
    ReportLabel control;
    setState(control, startState);
    layout()->ApplyFontSettingsToControl(&control, c.reportType, c.fieldType);
    EXPECT_EQ(stateOf(control), c.after.value_or(startState));
}

INSTANTIATE_TEST_SUITE_P(Fonts, FontLookup, ::testing::ValuesIn(fontCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(LayoutFixture, UnreadableFontsFileLeavesBothFamiliesAtTheirDefaults)
{
    host.writeSystemFile(QStringLiteral("General Report Fonts.fox"),
                         "<ReportFonts><GeneralReports>");
    host.writeSystemFile(QStringLiteral("Process Report Fonts.fox"),
                         "<ReportFonts><ProcessReports><Font type=\"15\" "
                         "size=\"14\"/></ProcessReports></ReportFonts>");
    EXPECT_EQ(layout()->GetFontHeight(3, 15), 242);
}

TEST_F(LayoutFixture, FontsAreThoseOfWhenTheServiceWasCreatedUntilPreTerminate)
{
    const QByteArray general =
        "<ReportFonts><GeneralReports><Font type=\"1\" size=\"8\"/></GeneralReports></ReportFonts>";
    host.writeSystemFile(QStringLiteral("General Report Fonts.fox"), general);
    host.writeSystemFile(QStringLiteral("Process Report Fonts.fox"),
                         "<ReportFonts><ProcessReports/></ReportFonts>");
    ASSERT_EQ(layout()->GetFontHeight(1, 1), 198);

    host.writeUserFile(QStringLiteral("General Report Fonts.fox"),
                       "<ReportFonts><GeneralReports><Font type=\"1\" "
                       "size=\"12\"/></GeneralReports></ReportFonts>");
    EXPECT_EQ(layout()->GetFontHeight(1, 1), 198);
    EXPECT_TRUE(layout()->LoadGeneralReportFonts(false).contains(QLatin1String("size=\"12\"")));

    ReportLayout *old = layout();
    library.PreTerminate();
    EXPECT_EQ(old->GetFontHeight(1, 1), 242);
    library.Initialize(&host);
    EXPECT_EQ(layout()->GetFontHeight(1, 1), 286);
}

TEST_F(LayoutFixture, PublishedMembersAnswerByName)
{
    host.writeSystemFile(QStringLiteral("General Report Fonts.fox"),
                         "<ReportFonts><GeneralReports><Font type=\"5\" size=\"8\" "
                         "bold=\"1\"/></GeneralReports></ReportFonts>");
    host.writeSystemFile(QStringLiteral("Process Report Fonts.fox"),
                         "<ReportFonts><ProcessReports/></ReportFonts>");
    QObject *service = late::object(&library, "ReportLayout");
    EXPECT_EQ(late::value(service, "GetFontHeight", {1, 5}).toFloat(), 198);
    ReportLabel control;
    EXPECT_TRUE(late::call(service, "ApplyFontSettingsToControl",
                           {QVariant::fromValue<QObject *>(&control), 1, 5}));
    EXPECT_TRUE(control.font()->property("Bold").toBool());
    EXPECT_EQ(late::text(service, "GeneralReportFontsFile"),
              host.systemFolder() + "/General Report Fonts.fox");
}

TEST_F(LayoutFixture, ForcedUserFontsWithoutUserCopyLoadNothing)
{
    host.writeSystemFile(QStringLiteral("General Report Fonts.fox"),
                         "<ReportFonts><GeneralReports/></ReportFonts>");
    EXPECT_FALSE(layout()->LoadGeneralReportFonts(false).isEmpty());
    EXPECT_TRUE(layout()->LoadGeneralReportFonts(true).isEmpty());
    EXPECT_EQ(layout()->generalReportFontsDocument(true), nullptr);
}

TEST(FontTypes, FamiliesNameTheirOwnTypesOnly)
{
    EXPECT_EQ(FontTypeDisplayName(generalReports, 2), "Title");
    EXPECT_EQ(FontTypeSample(2), "Report Title");
    EXPECT_EQ(FontTypeDisplayName(generalReports, 14), "");
    EXPECT_EQ(FontTypeDisplayName(processReports, 9), "Page Number");
    EXPECT_EQ(FontTypeDisplayName(processReports, 38), "You Saved");
    EXPECT_EQ(FontTypeDisplayName(processReports, 2), "");
    EXPECT_EQ(FontTypeDisplayName(2, 1), "");
    EXPECT_EQ(FontTypeSample(6, QDateTime(QDate(2024, 1, 5), QTime(17, 45))), "1/5/2024");
    EXPECT_EQ(FontTypeSample(7, QDateTime(QDate(2024, 1, 5), QTime(17, 45))), "17:45");
    EXPECT_EQ(FontTypeSample(38), "Example");
}

} // namespace
} // namespace bravcpl5::test
