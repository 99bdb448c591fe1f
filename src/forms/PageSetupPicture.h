#pragma once

// One of the page setup dialog's previews (`picPreview1` to `picPreview3`): it paints the
// record it was given through DrawPageSetupPreview, over its own pixels, at the screen's
// resolution. Geometry stays in the preview module; this only paints.

#include "printing/PageSetupPreview.h"

#include <QWidget>

namespace bravcpl5 {

class PageSetupPicture : public QWidget
{
    Q_OBJECT

public:
    explicit PageSetupPicture(QWidget *parent = nullptr);

    void setRecord(const PageSetupPreviewInfo &record);
    const PageSetupPreviewInfo &record() const { return m_record; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    PageSetupPreviewInfo m_record;
};

} // namespace bravcpl5
