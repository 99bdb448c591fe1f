#pragma once

#include "report/ReportBorder.h"
#include "report/ReportFont.h"

#include <QObject>
#include <QRectF>
#include <QString>

class QPainter;

namespace bravcpl5 {

// A reference report control: what the report engine's labels and fields offer to the
// library (Font, Border, colours, back style, alignment) and a position on its band, all
// writable by late binding. Colours are Windows colour values; BackStyle 0 is transparent
// and 1 opaque; Alignment 0 left, 1 right, 2 centre; the geometry is in twips.
class ReportControl : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bravcpl5::ReportFont *Font READ font CONSTANT)
    Q_PROPERTY(bravcpl5::ReportBorder *Border READ border CONSTANT)
    Q_PROPERTY(qint32 ForeColor MEMBER m_foreColor)
    Q_PROPERTY(qint32 BackColor MEMBER m_backColor)
    Q_PROPERTY(int BackStyle MEMBER m_backStyle)
    Q_PROPERTY(int Alignment MEMBER m_alignment)
    Q_PROPERTY(double Left MEMBER m_left)
    Q_PROPERTY(double Top MEMBER m_top)
    Q_PROPERTY(double Width MEMBER m_width)
    Q_PROPERTY(double Height MEMBER m_height)

public:
    ReportFont *font() const { return m_font; }
    ReportBorder *border() const { return m_border; }

    // Left, Top, Width and Height as a rectangle in twips.
    QRectF twipsRect() const { return {m_left, m_top, m_width, m_height}; }
    void setTwipsRect(const QRectF &rect);

    // The room left between the text and each side of the control: two pixels of a 96 dpi
    // screen.
    static constexpr double TextPaddingTwips = 30;

    // Draws the control into `rect` (device units): the back colour when opaque, the text
    // in its font, colour and alignment, then the border. Each line of the text (lines are
    // separated by "\n") that is wider than the control ends in "…" where it would be cut.
    void draw(QPainter &painter, const QRectF &rect) const;

protected:
    explicit ReportControl(QObject *parent = nullptr);
    virtual QString displayText() const = 0;

private:
    ReportFont *m_font;
    ReportBorder *m_border;
    qint32 m_foreColor = 0;
    qint32 m_backColor = 0xFFFFFF;
    int m_backStyle = 0;
    int m_alignment = 0;
    double m_left = 0;
    double m_top = 0;
    double m_width = 1440;
    double m_height = 288;
};

} // namespace bravcpl5
