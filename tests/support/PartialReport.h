#pragma once

// A report object for tests that lacks most of what the library sets: no printer, page
// settings with only some members, a paper width that cannot be written and a paper size
// that refuses every number. Writes are logged as FakeReport logs them.

#include "support/FakeReport.h"

#include <QSize>

namespace bravcpl5::test {

class PartialPageSettings : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QSize PaperSize READ paperSize WRITE setPaperSize)
    Q_PROPERTY(float PaperWidth READ paperWidth)
    Q_PROPERTY(float TopMargin READ topMargin WRITE setTopMargin)
    Q_PROPERTY(float LeftMargin READ leftMargin WRITE setLeftMargin)
    Q_PROPERTY(float RightMargin READ rightMargin WRITE setRightMargin)
    Q_PROPERTY(int Orientation READ orientation WRITE setOrientation)
public:
    explicit PartialPageSettings(WriteLog &log) : m_log(log) {}

    QSize paperSize() const { return {}; }
    float paperWidth() const { return 12240; }
    float topMargin() const { return m_topMargin; }
    float leftMargin() const { return m_leftMargin; }
    float rightMargin() const { return m_rightMargin; }
    int orientation() const { return m_orientation; }

    void setPaperSize(QSize size) { m_log.append({QStringLiteral("PageSettings.PaperSize"), size}); }
    void setTopMargin(float v) { write("TopMargin", m_topMargin, v); }
    void setLeftMargin(float v) { write("LeftMargin", m_leftMargin, v); }
    void setRightMargin(float v) { write("RightMargin", m_rightMargin, v); }
    void setOrientation(int v) { write("Orientation", m_orientation, v); }

private:
    template <typename T> void write(const char *member, T &field, T value)
    {
        recordWrite(m_log, QStringLiteral("PageSettings.") + QLatin1String(member), field, value);
    }

    WriteLog &m_log;
    float m_topMargin = 0;
    float m_leftMargin = 0;
    float m_rightMargin = 0;
    int m_orientation = 0;
};

class PartialReport : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *PageSettings READ pageSettings)
    Q_PROPERTY(float PrintWidth READ printWidth WRITE setPrintWidth)
public:
    QObject *pageSettings() { return &m_pageSettings; }
    float printWidth() const { return m_printWidth; }
    void setPrintWidth(float width) { recordWrite(m_log, QStringLiteral("PrintWidth"), m_printWidth, width); }
    const WriteLog &writes() const { return m_log; }

private:
    WriteLog m_log;
    PartialPageSettings m_pageSettings{m_log};
    float m_printWidth = 0;
};

} // namespace bravcpl5::test
