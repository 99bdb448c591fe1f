#include "forms/PageSetupPicture.h"

#include "printing/PainterPreviewSurface.h"

#include <QPainter>

namespace bravcpl5 {

PageSetupPicture::PageSetupPicture(QWidget *parent) : QWidget(parent)
{
    // Painted whole on each change, so nothing underneath needs painting first.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PageSetupPicture::setRecord(const PageSetupPreviewInfo &record)
{
    if (record == m_record)
        return;
    m_record = record;
    update();
}

void PageSetupPicture::paintEvent(QPaintEvent *)
{
    const QColor background = palette().color(QPalette::Window);
    QPainter(this).fillRect(rect(), background);
    PainterPreviewSurface surface(*this, background);
    DrawPageSetupPreview(m_record, surface);
}

} // namespace bravcpl5
