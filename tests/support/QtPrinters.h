#pragma once

// Readable Qt strings in GoogleTest failure messages.

#include <QString>
#include <QStringList>
#include <ostream>

inline void PrintTo(const QString &text, std::ostream *os)
{
    *os << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QStringList &list, std::ostream *os)
{
    *os << '{';
    for (qsizetype i = 0; i < list.size(); ++i) {
        *os << (i ? ", " : "");
        PrintTo(list[i], os);
    }
    *os << '}';
}
