#include "library/Messages.h"

#include "support/MessageRecorder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

// The real message box: application title, the icon and buttons asked for, the answer
// the user clicked.
TEST(Messages, ShowsAModalBoxWithTheApplicationTitle)
{
    SetMessageHandler({});
    QString title, text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QTimer::singleShot(0, [&]() {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        ASSERT_TRUE(box);
        title = box->windowTitle();
        text = box->text();
        icon = box->icon();
        box->button(QMessageBox::No)->click();
    });
    const auto answer = ShowMessage(QStringLiteral("Proceed?"), QMessageBox::Question,
                                    QMessageBox::Yes | QMessageBox::No);
    test::MessageRecorder restoreTheTestHandler;
    EXPECT_EQ(answer, QMessageBox::No);
    EXPECT_EQ(title, QApplication::applicationDisplayName());
    EXPECT_EQ(text, QStringLiteral("Proceed?"));
    EXPECT_EQ(icon, QMessageBox::Question);
}
} // namespace
