#pragma once

// The numbering that paper size and paper bin codes share.

#include <QList>
#include <QSet>

namespace bravcpl5 {

// Codes for a printer's items in its order: an item's standard code where it has one (not
// 0) and no earlier item took it, otherwise the next free code from `first` up, so codes
// are unique and the same list always gives the same codes.
template <typename T, typename StandardCode>
QList<int> NumberCodes(const QList<T> &items, int first, StandardCode standardCode)
{
    QList<int> codes;
    QSet<int> taken;
    int next = first;
    for (const T &item : items) {
        int code = standardCode(item);
        if (code == 0 || taken.contains(code))
            code = next++;
        taken.insert(code);
        codes.append(code);
    }
    return codes;
}

} // namespace bravcpl5
