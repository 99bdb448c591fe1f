#include "library/WindowPositions.h"

#include "library/Registry.h"
#include "library/Units.h"
#include "library/ValueRules.h"

#include <QStringList>
#include <QWidget>
#include <cmath>

namespace bravcpl5 {

namespace {


int toPixels(qint32 twips, int dpi) { return int(std::lround(twips * double(dpi) / TwipsPerInch)); }
qint64 toTwips(int pixels, int dpi) { return std::llround(pixels * TwipsPerInch / double(dpi)); }

} // namespace

void RestoreWindowPosition(const QString &name, QWidget *form, bool restoreSize)
{
    if (!form)
        return;
    const QString record = GetRegValue(HKEY_CURRENT_USER_HANDLE,
                                       QString::fromLatin1(WindowPositionsKey), name, QString());
    if (record.isEmpty())
        return;
    const QStringList fields = record.split(QLatin1Char(','));
    if (fields.size() != 4)
        return;
    const int dpiX = form->logicalDpiX();
    const int dpiY = form->logicalDpiY();

    const auto top = values::textToInt32(fields[0]);
    if (!top)
        return;
    form->move(form->x(), toPixels(*top, dpiY));
    const auto left = values::textToInt32(fields[1]);
    if (!left)
        return;
    form->move(toPixels(*left, dpiX), form->y());
    if (!restoreSize)
        return;
    const auto width = values::textToInt32(fields[2]);
    if (!width)
        return;
    form->resize(toPixels(*width, dpiX), form->height());
    const auto height = values::textToInt32(fields[3]);
    if (!height)
        return;
    form->resize(form->width(), toPixels(*height, dpiY));
}

void SaveWindowPosition(const QString &name, QWidget *form)
{
    if (!form)
        return;
    const int dpiX = form->logicalDpiX();
    const int dpiY = form->logicalDpiY();
    const QString record = QStringLiteral("%1,%2,%3,%4")
                               .arg(toTwips(form->y(), dpiY))
                               .arg(toTwips(form->x(), dpiX))
                               .arg(toTwips(form->width(), dpiX))
                               .arg(toTwips(form->height(), dpiY));
    SetRegValue(HKEY_CURRENT_USER_HANDLE, QString::fromLatin1(WindowPositionsKey), name, record);
}

} // namespace bravcpl5
