#include "layout/PickerImages.h"

#include <QDir>

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
    return QImage(folder + name + extension, "BMP");
}

QStringList PickerImageNames()
{
    QStringList names;
    const QStringList files = QDir(folder).entryList({QStringLiteral("*") + extension}, QDir::Files);
    for (const QString &file : files)
        names.append(file.chopped(extension.size()));
    return names;
}

} // namespace bravcpl5
