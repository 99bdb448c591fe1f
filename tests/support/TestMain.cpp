// Every test program starts here: a QApplication on the offscreen platform, standard paths
// in test mode, the en_US locale and UTC, so that results do not depend on the machine.
// A program run with BRAVCPL5_TEST_X11 set gets a private X server with a window manager
// instead, and Qt's xcb platform on it (support/XvfbSession.h).

#include "support/TestEnvironment.h"
#include "support/XvfbSession.h"

#include <QApplication>
#include <QLocale>
#include <QStandardPaths>
#include <gtest/gtest.h>
#include <memory>

namespace {

bool onlyListing(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], "--gtest_list_tests") == 0)
            return true;
    }
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    // Declared before the application, so that the server outlives its last connection.
    std::unique_ptr<bravcpl5::test::XvfbSession> x11;
    if (qEnvironmentVariableIsSet("BRAVCPL5_TEST_X11") && !onlyListing(argc, argv)) {
        x11 = std::make_unique<bravcpl5::test::XvfbSession>();
        bravcpl5::test::XvfbSession::setCurrent(x11.get());
        if (x11->isRunning()) {
            qputenv("DISPLAY", x11->display().toLatin1());
            qputenv("QT_QPA_PLATFORM", "xcb");
        }
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || (x11 && !x11->isRunning()))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    QStandardPaths::setTestModeEnabled(true);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("bravcpl5 tests"));
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::AddGlobalTestEnvironment(new bravcpl5::test::TestEnvironment);
    return RUN_ALL_TESTS();
}
