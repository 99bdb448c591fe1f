#pragma once

#include "report/ReportPage.h"

#include <QObject>

namespace bravcpl5 {

// A report's page settings, in the units a report engine takes: Windows paper and bin
// codes, lengths in twips (singles), orientation 1 portrait and 2 landscape. Every value
// is kept as it is set; what the printer cannot take is settled when printing.
class ReportPageSettings : public QObject
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
    using QObject::QObject;

    const ReportPageValues &values() const { return m_values; }

    int paperSize() const { return m_values.paperSize; }
    void setPaperSize(int code) { m_values.paperSize = code; }
    float paperWidth() const { return float(m_values.paperWidth); }
    void setPaperWidth(float twips) { m_values.paperWidth = twips; }
    float paperHeight() const { return float(m_values.paperHeight); }
    void setPaperHeight(float twips) { m_values.paperHeight = twips; }
    int paperSource() const { return m_values.paperSource; }
    void setPaperSource(int code) { m_values.paperSource = code; }
    float topMargin() const { return float(m_values.topMargin); }
    void setTopMargin(float twips) { m_values.topMargin = twips; }
    float bottomMargin() const { return float(m_values.bottomMargin); }
    void setBottomMargin(float twips) { m_values.bottomMargin = twips; }
    float leftMargin() const { return float(m_values.leftMargin); }
    void setLeftMargin(float twips) { m_values.leftMargin = twips; }
    float rightMargin() const { return float(m_values.rightMargin); }
    void setRightMargin(float twips) { m_values.rightMargin = twips; }
    float gutter() const { return float(m_values.gutter); }
    void setGutter(float twips) { m_values.gutter = twips; }
    bool mirrorMargins() const { return m_values.mirrorMargins; }
    void setMirrorMargins(bool mirror) { m_values.mirrorMargins = mirror; }
    int orientation() const { return m_values.orientation; }
    void setOrientation(int orientation) { m_values.orientation = orientation; }

private:
    ReportPageValues m_values;
};

} // namespace bravcpl5
