#pragma once

// Texts fitted into report columns before the report is laid out, measured as they print.

#include <QFontMetricsF>
#include <QStringList>

// The metrics of `font` on a report page, whose device units are twips.
QFontMetricsF PrintedMetrics(const QFont &font);

// Column widths for `wanted` widths on a line `width` long: as wanted when they fit, else
// scaled down together, except that no column goes below its `least` width (its heading's
// longest word, say) while the others can give way; when even the least widths do not fit,
// those are scaled down together instead.
QList<double> FitWidths(const QList<double> &wanted, const QList<double> &least, double width);

// `text` filled word by word into lines no wider than `width`, at most `maxLines` of them.
// A word wider than a line, and the words left over for the last line, end in "…"; lines
// where not even "…" fits are left out.
QStringList WrapWords(const QString &text, const QFontMetricsF &metrics, double width,
                      int maxLines);
