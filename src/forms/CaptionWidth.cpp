#include "forms/CaptionWidth.h"

#include <QGuiApplication>
#include <QWidget>

namespace bravcpl5 {

int CaptionWidth(const QWidget *window)
{
    QString caption = window->windowTitle();
    const QString application = QGuiApplication::applicationDisplayName();
    if (!application.isEmpty() && !caption.contains(application))
        caption += QStringLiteral(" \u2014 ") + application;
    QFont font = window->font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    // The icon and the three buttons are about as wide as the caption is high, with a
    // little space around each.
    const int box = metrics.height() + 6;
    return metrics.horizontalAdvance(caption) + 4 * box + 2 * metrics.averageCharWidth();
}

} // namespace bravcpl5
