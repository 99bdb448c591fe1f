// Runs the Library's whole life many times (create by name, initialise, read both services,
// terminate, read again, delete, and the host going first) so that a leak checker run over
// this program finds any object the ownership rules fail to release. It uses only what the
// shared library exports, as an automation client would.

#include "library/Factory.h"

#include <QCoreApplication>
#include <QVariant>
#include <cstdio>
#include <memory>

namespace {
QObject *object(QObject *from, const char *property)
{
    return from->property(property).value<QObject *>();
}
} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    int failures = 0;
    for (int round = 0; round < 200; ++round) {
        auto host = std::make_unique<QObject>();
        std::unique_ptr<QObject> library(bravcpl5_CreateObject("bravcpl5.Library"));
        QMetaObject::invokeMethod(library.get(), "Initialize", Q_ARG(QObject *, host.get()));
        QObject *configurations = object(library.get(), "PrinterConfigurations");
        QObject *layout = object(library.get(), "ReportLayout");
        if (!configurations || !layout || object(configurations, "Owner") != library.get())
            ++failures;
        QMetaObject::invokeMethod(library.get(), "PreTerminate");
        // Services read after PreTerminate, and a library deleted without PreTerminate.
        object(library.get(), "PrinterConfigurations");
        if (round % 2)
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (round % 3 == 0)
            host.reset();
        library.reset();
    }
    for (const char *id : {"bravcpl5.PrinterConfigurations", "bravcpl5.ReportLayout",
                           "bravcpl5.ReportConfiguration"})
        delete bravcpl5_CreateObject(id);
    std::printf("ownership rounds done, %d failures\n", failures);
    return failures == 0 ? 0 : 1;
}
