#pragma once

#include <QObject>
#include <QString>

namespace bravcpl5 {

// A report's printer: the installed printer (CUPS queue) it prints to.
class ReportPrinter : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString DeviceName READ deviceName WRITE setDeviceName)

public:
    using QObject::QObject;

    QString deviceName() const { return m_deviceName; }
    void setDeviceName(const QString &name) { m_deviceName = name; }

private:
    QString m_deviceName;
};

} // namespace bravcpl5
