// A report control's text on paper: a line wider than the control ends in "…" rather than
// being cut mid-glyph, a line that fits prints whole, and every line of a caption prints.

#include "report/ReportLabel.h"

#include <QDir>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace bravcpl5;

namespace {

TEST(ReportControlText, LinesTooWideEndInAnEllipsis)
{
    const struct {
        const char *name;
        const char *caption;
        double inches; // the control's width
        QStringList printed;
    } cases[] = {
        {"Fits", "Dealer Cost", 2, {"Dealer Cost"}},
        {"TooWide", "Clearview Legacy Aluminum Blind", 1, {"Clearview…"}},
        {"EveryLine", "Lead\nTime (days)", 1, {"Lead", "Time (days)"}},
        {"EachLineOnItsOwn", "Min\nWidth of the blind", 0.8, {"Min", "Width…"}},
    };
    QTemporaryDir folder;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QString pdf = QDir(folder.path()).filePath(QLatin1String(c.name) + ".pdf");
        {
            QPdfWriter writer(pdf);
            writer.setResolution(1440); // twips, as the reports print
            ReportLabel label;
            label.setProperty("Caption", QString::fromUtf8(c.caption));
            label.font()->setProperty("Name", QStringLiteral("DejaVu Sans"));
            QPainter painter(&writer);
            label.draw(painter, QRectF(1440, 1440, c.inches * 1440, 1440));
        }
        QProcess pdftotext;
        pdftotext.start(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")});
        pdftotext.waitForFinished();
        const QStringList lines = QString::fromUtf8(pdftotext.readAllStandardOutput())
                                      .split(u'\n', Qt::SkipEmptyParts)
                                      .filter(QRegularExpression(QStringLiteral("\\S")));
        EXPECT_EQ(lines.size(), c.printed.size()) << lines.join(u'|').toStdString();
        for (qsizetype i = 0; i < qMin(lines.size(), c.printed.size()); ++i) {
            if (c.printed[i].endsWith(u'…')) {
                EXPECT_TRUE(lines[i].endsWith(u'…')) << lines[i].toStdString();
                EXPECT_TRUE(c.printed[i].startsWith(lines[i].first(2))) << lines[i].toStdString();
            } else {
                EXPECT_EQ(lines[i].trimmed(), c.printed[i]);
            }
        }
    }
}

} // namespace
