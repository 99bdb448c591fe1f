#include "report/PdfMediaBox.h"

#include "library/WholeFile.h"
#include "printers/PaperSizeCodes.h"

#include <QFile>

namespace bravcpl5 {

namespace {

const QByteArray boxStart = "/MediaBox [0 0 ";

// "W H" in at most `length` characters, with as many decimals as fit, padded with blanks
// (whitespace between PDF tokens may be of any length); empty when not even whole points fit.
QByteArray numbersOfLength(const QSizeF &points, qsizetype length)
{
    for (int decimals = 6; decimals >= 0; --decimals) {
        const QByteArray text = QByteArray::number(points.width(), 'f', decimals) + ' '
                                + QByteArray::number(points.height(), 'f', decimals);
        if (text.size() <= length)
            return text + QByteArray(length - text.size(), ' ');
    }
    return QByteArray();
}

} // namespace

bool SetExactMediaBox(const QString &pdfFile, const QSizeF &points)
{
    QFile file(pdfFile);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray pdf = file.readAll();
    file.close();
    bool changed = false;
    for (qsizetype at = pdf.indexOf(boxStart); at >= 0; at = pdf.indexOf(boxStart, at + 1)) {
        const qsizetype numbers = at + boxStart.size();
        const qsizetype end = pdf.indexOf(']', numbers);
        if (end < 0 || end - numbers > 64)
            continue; // not a box this writer wrote
        const QList<QByteArray> old = pdf.mid(numbers, end - numbers).simplified().split(' ');
        bool wide = false, high = false;
        const double width = old.size() == 2 ? old[0].toDouble(&wide) : 0;
        const double height = old.size() == 2 ? old[1].toDouble(&high) : 0;
        if (!wide || !high || !SamePaper({width, height}, points))
            continue; // another page's size: left as it is
        const QByteArray exact = numbersOfLength(points, end - numbers);
        if (exact.isEmpty())
            continue;
        pdf.replace(numbers, exact.size(), exact);
        changed = true;
    }
    return changed && WriteWholeFile(pdfFile, pdf);
}

} // namespace bravcpl5
