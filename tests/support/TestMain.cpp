// Every test program starts here: a QApplication on the offscreen platform, standard paths
// in test mode, the en_US locale and UTC, so that results do not depend on the machine.

#include "support/TestEnvironment.h"

#include <QApplication>
#include <QLocale>
#include <QStandardPaths>
#include <gtest/gtest.h>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
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
