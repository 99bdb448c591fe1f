#pragma once

// The images of the host's format pickers (16 x 16, 16 colours), carried as resources
// under the names of layout/FormatPickers.h: ALIGN..., BORDER..., COLOR..., TEXTCOLOR...,
// BACKCOLOR....

#include <QImage>
#include <QString>
#include <QStringList>

namespace bravcpl5 {

// The image of that exact name; a null image for any other name.
QImage PickerImage(const QString &name);
// Every picker image name, in resource order.
QStringList PickerImageNames();

} // namespace bravcpl5
