#include "report/ReportFont.h"

namespace bravcpl5 {

QFont ReportFont::toQFont() const
{
    QFont font(m_name);
    if (m_size > 0)
        font.setPointSizeF(m_size);
    font.setBold(m_bold);
    font.setItalic(m_italic);
    font.setUnderline(m_underline);
    font.setStrikeOut(m_strikethrough);
    return font;
}

} // namespace bravcpl5
