#include "LayoutFixture.h"

#include <functional>
#include <ostream>

namespace bravcpl5::test {
namespace {

enum class Expect { User, System, None };

struct ResolutionCase {
    const char *name;
    bool userFolder;
    bool userCopy;
    bool systemCopy;
    bool forceUser;
    Expect result;
};

void PrintTo(const ResolutionCase &c, std::ostream *os) { *os << c.name; }

const ResolutionCase resolutionCases[] = {
    {"UserCopyWins", true, true, true, false, Expect::User},
    {"SystemCopyWithoutUserCopy", true, false, true, false, Expect::System},
    {"ForcedUserPathWithoutUserCopy", true, false, true, true, Expect::User},
    {"ForcedUserPathWithNoCopyAtAll", true, false, false, true, Expect::User},
    {"NoCopyAtAll", true, false, false, false, Expect::None},
    {"NoUserFolderTakesSystemCopy", false, false, true, false, Expect::System},
    {"NoUserFolderForcedTakesSystemCopy", false, false, true, true, Expect::System},
    {"NoUserFolderForcedWithoutSystemCopy", false, false, false, true, Expect::None},
};

// The three settings files share one rule.
struct Member {
    const char *fileName;
    std::function<QString(ReportLayout &, bool)> resolve;
};

const Member members[] = {
    {"General Report Layout.lyx",
     [](ReportLayout &l, bool f) { return l.GeneralReportLayoutFile(f); }},
    {"General Report Fonts.fox",
     [](ReportLayout &l, bool f) { return l.GeneralReportFontsFile(f); }},
    {"Process Report Fonts.fox",
     [](ReportLayout &l, bool f) { return l.ProcessReportFontsFile(f); }},
};

class Resolution : public LayoutFixture, public ::testing::WithParamInterface<ResolutionCase>
{
};

TEST_P(Resolution, UserFolderBeforeSystemFolder)
{
    const ResolutionCase &c = GetParam();
    const QString userFolder = host.userFolder();
    if (!c.userFolder)
        host.testOptions().userFolder.clear();
    for (const Member &member : members) {
        SCOPED_TRACE(member.fileName);
        const QString name = QString::fromLatin1(member.fileName);
        const QString userPath = userFolder + u'/' + name;
        const QString systemPath = host.systemFolder() + u'/' + name;
        if (c.userCopy)
            host.writeUserFile(name, "<x/>");
        if (c.systemCopy)
            host.writeSystemFile(name, "<x/>");
        const QString expected = c.result == Expect::User     ? userPath
                                 : c.result == Expect::System ? systemPath
                                                              : QString();
        EXPECT_EQ(member.resolve(*layout(), c.forceUser), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, Resolution, ::testing::ValuesIn(resolutionCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(LayoutFixture, FolderWithTrailingSeparatorGetsNoSecondOne)
{
    host.testOptions().systemFolder += u'/';
    host.writeSystemFile(QStringLiteral("General Report Layout.lyx"), "<Definition/>");
    host.testOptions().userFolder.clear();
    EXPECT_EQ(layout()->GeneralReportLayoutFile(false),
              host.systemFolder() + "General Report Layout.lyx");
}

TEST_F(LayoutFixture, WithoutHostEveryPathIsEmpty)
{
    library.Initialize(nullptr);
    EXPECT_EQ(layout()->GeneralReportLayoutFile(true), "");
    EXPECT_EQ(layout()->GetFontHeight(1, 1), 242);
}

} // namespace
} // namespace bravcpl5::test
