#pragma once

// Dates in the dialogs' masked date fields: the locale's short date order with every part
// at full width (01/05/2024 in en_US), so that a date always fills the mask exactly.

#include <QDate>
#include <QString>

class QLineEdit;

namespace bravcpl5::datetext {

// The input mask of a date field, e.g. "99/99/9999".
QString inputMask();
QString toText(const QDate &date);
// The date in a masked field; an invalid QDate unless the mask is filled with a real date.
QDate fromField(const QLineEdit *field);

} // namespace bravcpl5::datetext
