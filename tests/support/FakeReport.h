#pragma once

// Report objects for tests (printing/ReportContract.h) made of the real printer and page
// settings, with every property write logged in order as "Member=value"
// ("Printer.DeviceName=Office Laser", "PageSettings.PaperSize=1", "PrintWidth=8640").

#include "report/ReportPageSettings.h"
#include "report/ReportPrinter.h"

#include <QMetaProperty>
#include <QStringList>

namespace bravcpl5::test {

// A T that logs its property writes: the library writes through the meta-object, and so
// through qt_metacall.
template <class T> class Logged : public T
{
public:
    int qt_metacall(QMetaObject::Call call, int id, void **argv) override
    {
        if (call == QMetaObject::WriteProperty && log) {
            const QMetaProperty property = this->metaObject()->property(id);
            log->append(prefix + QLatin1String(property.name()) + u'='
                        + QVariant(property.metaType(), argv[0]).toString());
        }
        return T::qt_metacall(call, id, argv);
    }

    QStringList *log = nullptr;
    QString prefix;
};

// A report's own members; the test plugs in its printer and page settings.
class ReportShell : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *Printer MEMBER printer)
    Q_PROPERTY(QObject *PageSettings MEMBER pageSettings)
    Q_PROPERTY(float PrintWidth MEMBER printWidth)
public:
    QObject *printer = nullptr;
    QObject *pageSettings = nullptr;
    float printWidth = 0;
};

class FakeReport : public Logged<ReportShell>
{
public:
    FakeReport()
    {
        log = settings.log = device.log = &writes;
        settings.prefix = QStringLiteral("PageSettings.");
        device.prefix = QStringLiteral("Printer.");
        printer = &device;
        pageSettings = &settings;
    }

    QStringList writes;
    Logged<ReportPrinter> device;
    Logged<ReportPageSettings> settings;
};

} // namespace bravcpl5::test
