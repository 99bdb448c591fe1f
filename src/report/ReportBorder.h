#pragma once

#include <QObject>
#include <QRectF>
#include <cstdint>

class QPainter;

namespace bravcpl5 {

// The `Border` object of a reference report control: a line style and a colour (Windows
// colour value) per side. Line styles are the report engine's: 0 none, 1 solid, 2 dash,
// 3 dot, 4 dash-dot, 5 dash-dot-dot, 6 double, and 7 to 12 the thick forms of 1 to 6.
class ReportBorder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int LeftStyle MEMBER m_leftStyle)
    Q_PROPERTY(int TopStyle MEMBER m_topStyle)
    Q_PROPERTY(int RightStyle MEMBER m_rightStyle)
    Q_PROPERTY(int BottomStyle MEMBER m_bottomStyle)
    Q_PROPERTY(qint32 LeftColor MEMBER m_leftColor)
    Q_PROPERTY(qint32 TopColor MEMBER m_topColor)
    Q_PROPERTY(qint32 RightColor MEMBER m_rightColor)
    Q_PROPERTY(qint32 BottomColor MEMBER m_bottomColor)

public:
    explicit ReportBorder(QObject *parent = nullptr) : QObject(parent) {}

    // Draws the sides inside `rect`; `thinWidth` is a thin line in device units.
    void draw(QPainter &painter, const QRectF &rect, qreal thinWidth) const;

private:
    int m_leftStyle = 0;
    int m_topStyle = 0;
    int m_rightStyle = 0;
    int m_bottomStyle = 0;
    qint32 m_leftColor = 0;
    qint32 m_topColor = 0;
    qint32 m_rightColor = 0;
    qint32 m_bottomColor = 0;
};

} // namespace bravcpl5
