#pragma once

// A report object for tests with the members the library sets (printing/ReportContract.h).
// Every write, on the report, its printer or its page settings, is logged in order as
// "Member" (or "Printer.Member", "PageSettings.Member") with the value written.

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>
#include <utility>

namespace bravcpl5::test {

using WriteLog = QList<std::pair<QString, QVariant>>;

// Stores a written value and logs it under `member`.
template <typename T> void recordWrite(WriteLog &log, const QString &member, T &field, T value)
{
    field = value;
    log.append({member, QVariant::fromValue(value)});
}

class FakeReportPrinter : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString DeviceName READ deviceName WRITE setDeviceName)
public:
    explicit FakeReportPrinter(WriteLog &log) : m_log(log) {}
    QString deviceName() const { return m_deviceName; }
    void setDeviceName(const QString &name);

private:
    WriteLog &m_log;
    QString m_deviceName = QStringLiteral("untouched");
};

class FakePageSettings : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int PaperSize READ paperSize WRITE setPaperSize)
    Q_PROPERTY(float PaperWidth READ paperWidth WRITE setPaperWidth)
    Q_PROPERTY(float PaperHeight READ paperHeight WRITE setPaperHeight)
    Q_PROPERTY(int PaperSource READ paperSource WRITE setPaperSource)
    Q_PROPERTY(float TopMargin READ topMargin WRITE setTopMargin)
    Q_PROPERTY(float BottomMargin READ bottomMargin WRITE setBottomMargin)
    Q_PROPERTY(float LeftMargin READ leftMargin WRITE setLeftMargin)
    Q_PROPERTY(float RightMargin READ rightMargin WRITE setRightMargin)
    Q_PROPERTY(float Gutter READ gutter WRITE setGutter)
    Q_PROPERTY(bool MirrorMargins READ mirrorMargins WRITE setMirrorMargins)
    Q_PROPERTY(int Orientation READ orientation WRITE setOrientation)
public:
    explicit FakePageSettings(WriteLog &log) : m_log(log) {}

    int paperSize() const { return m_paperSize; }
    float paperWidth() const { return m_paperWidth; }
    float paperHeight() const { return m_paperHeight; }
    int paperSource() const { return m_paperSource; }
    float topMargin() const { return m_topMargin; }
    float bottomMargin() const { return m_bottomMargin; }
    float leftMargin() const { return m_leftMargin; }
    float rightMargin() const { return m_rightMargin; }
    float gutter() const { return m_gutter; }
    bool mirrorMargins() const { return m_mirrorMargins; }
    int orientation() const { return m_orientation; }

    void setPaperSize(int v) { write("PaperSize", m_paperSize, v); }
    void setPaperWidth(float v) { write("PaperWidth", m_paperWidth, v); }
    void setPaperHeight(float v) { write("PaperHeight", m_paperHeight, v); }
    void setPaperSource(int v) { write("PaperSource", m_paperSource, v); }
    void setTopMargin(float v) { write("TopMargin", m_topMargin, v); }
    void setBottomMargin(float v) { write("BottomMargin", m_bottomMargin, v); }
    void setLeftMargin(float v) { write("LeftMargin", m_leftMargin, v); }
    void setRightMargin(float v) { write("RightMargin", m_rightMargin, v); }
    void setGutter(float v) { write("Gutter", m_gutter, v); }
    void setMirrorMargins(bool v) { write("MirrorMargins", m_mirrorMargins, v); }
    void setOrientation(int v) { write("Orientation", m_orientation, v); }

private:
    template <typename T> void write(const char *member, T &field, T value)
    {
        recordWrite(m_log, QStringLiteral("PageSettings.") + QLatin1String(member), field, value);
    }

    WriteLog &m_log;
    int m_paperSize = 0;
    float m_paperWidth = 0;
    float m_paperHeight = 0;
    int m_paperSource = 0;
    float m_topMargin = 0;
    float m_bottomMargin = 0;
    float m_leftMargin = 0;
    float m_rightMargin = 0;
    float m_gutter = 0;
    bool m_mirrorMargins = false;
    int m_orientation = 0;
};

class FakeReport : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *Printer READ printer)
    Q_PROPERTY(QObject *PageSettings READ pageSettings)
    Q_PROPERTY(float PrintWidth READ printWidth WRITE setPrintWidth)
public:
    QObject *printer() { return &m_printer; }
    QObject *pageSettings() { return &m_pageSettings; }
    float printWidth() const { return m_printWidth; }
    void setPrintWidth(float width);

    FakeReportPrinter &fakePrinter() { return m_printer; }
    FakePageSettings &fakePageSettings() { return m_pageSettings; }
    const WriteLog &writes() const { return m_log; }
    // The members written, in order.
    QStringList writtenMembers() const;

private:
    WriteLog m_log;
    FakeReportPrinter m_printer{m_log};
    FakePageSettings m_pageSettings{m_log};
    float m_printWidth = 0;
};

} // namespace bravcpl5::test
