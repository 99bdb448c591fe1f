// The store's check of every configuration at once: which printer each one is checked
// against, and that each printer is read once however many configurations print on it.

#include "printing/PrinterCheck.h"
#include "printing/PrinterConfigurations.h"
#include "support/StoreFixture.h"

#include <QHash>

namespace bravcpl5::test {
namespace {

// Installed printers that all offer Letter from the upper bin, counting each read of a
// printer's paper.
struct CountingPrinters final : PaperPrinterInfo {
    QStringList printerNames() const override { return names; }
    QString defaultPrinterName() const override { return QString(); }
    PrinterPaper paper(const QString &printer) const override
    {
        ++reads[printer];
        PrinterPaper paper;
        paper.sizes = {{QStringLiteral("Letter"), 1, 12240, 15840, QMargins(360, 360, 360, 360)}};
        paper.bins = {{QStringLiteral("Upper"), 1}};
        return paper;
    }

    QStringList names = {QStringLiteral("Laser-1"), QStringLiteral("Laser-2"),
                         QStringLiteral("Laser-3")};
    mutable QHash<QString, int> reads;
};

class ConfigurationChecks : public StoreFixture
{
protected:
    void add(const QString &name, const QByteArray &pageSetup, const QString &printer)
    {
        host.writeUserFile(name + QStringLiteral(".pcx"), configurationXml(pageSetup));
        if (!printer.isEmpty()) {
            ASSERT_TRUE(store->assignPrinter(name, printer));
        }
    }
    // "name printer kind kind..." per configuration checked.
    QStringList check(bool withState = true, const QString &configuration = QString())
    {
        QStringList lines;
        for (const ConfigurationCheck &c :
             store->checkConfigurations(printers, withState, configuration)) {
            QStringList line{c.configuration, c.printer.isEmpty() ? "-" : c.printer};
            for (const PrinterFinding &finding : c.findings)
                line << FindingKindName(finding.kind);
            lines << line.join(u' ');
        }
        return lines;
    }

    CountingPrinters printers;
};

TEST_F(ConfigurationChecks, EachConfigurationAgainstItsOwnPrinterElseTheDefaultOne)
{
    add(QStringLiteral("Letter"), "<PaperSize>1</PaperSize>", QStringLiteral("Laser-1"));
    add(QStringLiteral("Legal"), "<PaperSize>5</PaperSize>", QStringLiteral("Laser-2"));
    add(QStringLiteral("Envelope"), "<PaperSource>5</PaperSource>", QString());
    add(QStringLiteral("Gone"), "<PaperSize>1</PaperSize>", QStringLiteral("Plotter"));
    EXPECT_EQ(check(), QStringList({"Envelope - no-printer", "Gone Plotter printer-missing",
                                    "Legal Laser-2 paper-not-offered", "Letter Laser-1"}));

    ASSERT_TRUE(store->assignPrinter(QString::fromLatin1(DefaultPrinterValueName), "Laser-3"));
    EXPECT_EQ(check(),
              QStringList({"Envelope Laser-3 bin-not-offered", "Gone Plotter printer-missing",
                           "Legal Laser-2 paper-not-offered", "Letter Laser-1"}));
    EXPECT_EQ(check(true, QStringLiteral("LEGAL")),
              QStringList({"Legal Laser-2 paper-not-offered"}));
    EXPECT_EQ(check(true, QStringLiteral("Missing")), QStringList());
}

// Many configurations on a few printers read each printer once a check, and a check of one
// configuration reads only its printer.
TEST_F(ConfigurationChecks, EachPrinterIsReadOnce)
{
    for (int i = 0; i < 60; ++i)
        add(QStringLiteral("Config %1").arg(i), "<PaperSize>1</PaperSize>",
            i % 4 == 3 ? QString() : printers.names[i % 4]);
    ASSERT_TRUE(store->assignPrinter(QString::fromLatin1(DefaultPrinterValueName), "laser-1"));

    const QList<ConfigurationCheck> checks = store->checkConfigurations(printers);
    EXPECT_EQ(checks.size(), 60);
    for (const ConfigurationCheck &c : checks)
        EXPECT_TRUE(c.findings.isEmpty())
            << c.configuration.toStdString() << ": " << DescribeFindings(c.findings).toStdString();
    EXPECT_EQ(printers.reads,
              (QHash<QString, int>{{"Laser-1", 1}, {"Laser-2", 1}, {"Laser-3", 1}}));

    printers.reads.clear();
    ASSERT_EQ(check(true, QStringLiteral("Config 5")), QStringList({"Config 5 Laser-2"}));
    EXPECT_EQ(printers.reads, (QHash<QString, int>{{"Laser-2", 1}}));
}

} // namespace
} // namespace bravcpl5::test
