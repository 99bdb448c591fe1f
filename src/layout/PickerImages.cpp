#include "layout/PickerImages.h"

#include <QDir>

// The images are compiled into the library; where it is linked statically nothing else
// refers to them, so they are registered before the first look-up.
static void registerPickerImages()
{
    static const bool registered = [] {
        Q_INIT_RESOURCE(picker_images);
        return true;
    }();
    Q_UNUSED(registered);
}

namespace bravcpl5 {

namespace {
const QString folder = QStringLiteral(":/pickers/");
const QString extension = QStringLiteral(".bmp");
} // namespace

QImage PickerImage(const QString &name)
{
    // A name that reaches outside the picker folder is no picker name.
    if (name.isEmpty() || name.contains(u'/'))
        return QImage();
    registerPickerImages();
    return QImage(folder + name + extension, "BMP");
}

QStringList PickerImageNames()
{
    registerPickerImages();
    QStringList names;
    const QStringList files = QDir(folder).entryList({QStringLiteral("*") + extension},
                                                     QDir::Files);
    for (const QString &file : files)
        names.append(file.chopped(extension.size()));
    return names;
}

} // namespace bravcpl5
