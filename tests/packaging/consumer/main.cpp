// A host's first steps through the installed headers and shared library only: creates the
// library by its programmatic identifier, reads one of its services and prints their classes.

#include <library/Factory.h>
#include <library/Library.h>

#include <QCoreApplication>
#include <QTextStream>
#include <memory>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    std::unique_ptr<QObject> byName(bravcpl5_CreateObject("bravcpl5.Library"));
    auto *library = qobject_cast<bravcpl5::Library *>(byName.get());
    if (!library) {
        out << "bravcpl5.Library could not be created\n";
        return 1;
    }
    out << "bravcpl5.Library: " << library->metaObject()->className()
        << ", printer configurations: "
        << library->printerConfigurations()->metaObject()->className() << '\n';
    library->PreTerminate();
    return 0;
}
