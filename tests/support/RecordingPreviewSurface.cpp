#include "support/RecordingPreviewSurface.h"

namespace bravcpl5::test {

RecordingPreviewSurface::RecordingPreviewSurface(float widthTwips, float heightTwips,
                                                 QColor background)
    : m_width(widthTwips), m_height(heightTwips), m_background(background)
{
}

void RecordingPreviewSurface::drawRectangle(QPointF from, QPointF to)
{
    rectangles.append({from, to, m_fore, m_fill, m_style});
}

void RecordingPreviewSurface::printText(const QString &text)
{
    texts.append({m_position, m_fore, text});
}

} // namespace bravcpl5::test
