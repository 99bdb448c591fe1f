#include "support/FakeReport.h"

#include <QStringList>

namespace bravcpl5::test {

void FakeReportPrinter::setDeviceName(const QString &name)
{
    recordWrite(m_log, QStringLiteral("Printer.DeviceName"), m_deviceName, name);
}

void FakeReport::setPrintWidth(float width)
{
    recordWrite(m_log, QStringLiteral("PrintWidth"), m_printWidth, width);
}

QStringList FakeReport::writtenMembers() const
{
    QStringList members;
    for (const auto &write : m_log)
        members.append(write.first);
    return members;
}

} // namespace bravcpl5::test
