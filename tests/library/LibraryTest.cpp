#include "library/Library.h"
#include "library/Factory.h"
#include "library/LateBinding.h"

#include <QCoreApplication>
#include <QPointer>
#include <gtest/gtest.h>
#include <memory>

using namespace bravcpl5;

namespace {

// Everything here goes by name, as a client that only knows the published names would.
TEST(Library, ClientThatKnowsOnlyNames)
{
    std::unique_ptr<QObject> library(bravcpl5_CreateObject("bravcpl5.Library"));
    ASSERT_TRUE(library);
    QObject host;
    ASSERT_TRUE(late::call(library.get(), "Initialize", {QVariant::fromValue(&host)}));
    EXPECT_EQ(late::object(library.get(), "SharedCodeLibrary"), &host);

    QObject *first = late::object(library.get(), "PrinterConfigurations");
    QObject *second = late::object(library.get(), "PrinterConfigurations");
    ASSERT_TRUE(first);
    EXPECT_EQ(first, second);
    EXPECT_EQ(late::object(first, "Owner"), library.get());
    QObject *layout = late::object(library.get(), "ReportLayout");
    ASSERT_TRUE(layout);
    EXPECT_EQ(late::object(layout, "Owner"), library.get());

    QPointer<QObject> retired = first;
    EXPECT_TRUE(late::call(library.get(), "PreTerminate"));
    EXPECT_TRUE(late::call(library.get(), "PreTerminate"));
    EXPECT_EQ(late::object(library.get(), "SharedCodeLibrary"), nullptr);
    ASSERT_TRUE(retired) << "still usable by a caller until control returns to the event loop";
    EXPECT_EQ(late::object(retired, "Owner"), nullptr);

    // A fresh service after PreTerminate, with no way to the host.
    QObject *fresh = late::object(library.get(), "PrinterConfigurations");
    ASSERT_TRUE(fresh);
    EXPECT_EQ(late::object(late::object(fresh, "Owner"), "SharedCodeLibrary"), nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(retired);
}

// The host is replaced on a second Initialize, forgotten when it goes, and never owned.
TEST(Library, HostIsReplacedForgottenWhenDeletedAndNeverOwned)
{
    QPointer<QObject> first = new QObject, second = new QObject;
    {
        Library library;
        library.Initialize(first);
        library.Initialize(second);
        EXPECT_EQ(library.printerConfigurations()->host(), second.data());
        delete second;
        EXPECT_EQ(library.sharedCodeLibrary(), nullptr);
        EXPECT_EQ(library.reportLayout()->host(), nullptr);
        library.Initialize(first);
    } // without PreTerminate: the services go with the library, the host stays
    ASSERT_TRUE(first);
    delete first;
}

TEST(Factory, CreatesEachPublishedClassByIdentifier)
{
    const std::pair<const char *, const char *> cases[] = {
        {"bravcpl5.Library", "bravcpl5::Library"},
        {"bravcpl5.PrinterConfigurations", "bravcpl5::PrinterConfigurations"},
        {"bravcpl5.ReportLayout", "bravcpl5::ReportLayout"},
        {"bravcpl5.ReportConfiguration", "bravcpl5::ReportConfiguration"},
        {"BRAVCPL5.library", "bravcpl5::Library"},
    };
    for (const auto &[progId, className] : cases) {
        std::unique_ptr<QObject> object(bravcpl5_CreateObject(progId));
        ASSERT_TRUE(object) << progId;
        EXPECT_STREQ(object->metaObject()->className(), className);
    }
    for (const char *unknown : {"bravcpl5.Nothing", "", "Library", "bravcpl5.Library.1"})
        EXPECT_EQ(bravcpl5_CreateObject(unknown), nullptr) << unknown;
    EXPECT_EQ(bravcpl5_CreateObject(nullptr), nullptr);
}

TEST(Factory, ReportConfigurationPublishesNothing)
{
    std::unique_ptr<QObject> object(CreateObject(QStringLiteral("bravcpl5.ReportConfiguration")));
    const QMetaObject *meta = object->metaObject();
    EXPECT_EQ(meta->methodCount(), QObject::staticMetaObject.methodCount());
    EXPECT_EQ(meta->propertyCount(), QObject::staticMetaObject.propertyCount());
}

} // namespace
