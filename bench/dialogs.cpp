// How quickly the report filters dialog comes up on a large configuration, how quickly a
// vendor drop-down opens on a large vendor list, and how quickly the process report fonts
// dialog comes up with its rows drawn in their fonts. All run offscreen, from creating the
// dialog (or starting the edit) to the first frame painted with the rows (or the list).

#include "forms/frmGeneralReportFields.h"
#include "forms/frmGeneralReportFilters.h"
#include "forms/frmGeneralReportFonts.h"
#include "forms/frmPrinterConfigurations.h"
#include "layout/ReportLayout.h"
#include "library/Library.h"
#include "library/Registry.h"
#include "printing/PrinterConfigurations.h"
#include "support/TestHost.h"

#include "database/SampleData.h"
#include "filters/DatabaseHost.h"

#include "Painting.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFileInfo>
#include <QListView>
#include <QLocale>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

namespace {

using namespace bravcpl5;

QByteArray configurationWithFilters(int count)
{
    static const char *const types[] = {"daterange", "vendor",        "manufacturer",
                                        "boolean",   "productsource", "producttype",
                                        "",          "product"};
    static const char *const values[] = {"Last Week", "[1stvendor]", "Alpha Blinds", "yes",
                                         "stock",     "Shutters",    "some text",    ""};
    QByteArray xml = "<?xml version=\"1.0\"?>\n<Report><Filters>\n";
    for (int i = 0; i < count; ++i) {
        const int kind = i % 8;
        xml += QStringLiteral("<Filter%1 label=\"Filter number %1\" type=\"%2\" allowall=\"1\" "
                              "value=\"%3\" description=\"What filter %1 selects.\"/>\n")
                   .arg(i)
                   .arg(QLatin1String(types[kind]), QLatin1String(values[kind]))
                   .toUtf8();
    }
    return xml + "</Filters></Report>\n";
}

// The sample host's real SQLite database code, with generated vendors.
struct Setting {
    Setting(int filters, int vendors) : host(NewDatabase::Empty)
    {
        AddGeneratedVendors(*host.database(), vendors);
        library.Initialize(&host);
        file = host.writeSystemFile(QStringLiteral("Large.rpx"), configurationWithFilters(filters));
    }
    ~Setting() { library.PreTerminate(); }

    test::DatabaseHost host;
    Library library;
    QString file;
};

// Waits, after showing `form`, for the first paint of `grid` with its rows in it.
template <typename Form> void untilRowsPainted(Form &form, QAbstractItemView *grid)
{
    PaintCounter counter;
    int paintsBeforeRows = -1;
    form.show();
    runUntil([&]() {
        if (paintsBeforeRows < 0 && form.isActivated()) {
            paintsBeforeRows = counter.paints;
            grid->viewport()->installEventFilter(&counter);
        }
        return paintsBeforeRows >= 0 && counter.paints > 0;
    });
}

void BM_OpenFiltersDialog(benchmark::State &state)
{
    Setting setting(int(state.range(0)), 100);
    for (auto _ : state) {
        frmGeneralReportFilters form;
        form.SetConfiguration(setting.file, &setting.library);
        auto *grid = form.findChild<QTreeWidget *>(QStringLiteral("rptItems"));
        untilRowsPainted(form, grid);
        benchmark::DoNotOptimize(grid->topLevelItemCount());
        state.PauseTiming();
        form.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenFiltersDialog)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_OpenProcessFontsDialog(benchmark::State &state)
{
    Setting setting(0, 0);
    for (auto _ : state) {
        frmGeneralReportFonts form(processReports);
        form.SetUp(setting.library.reportLayout());
        auto *grid = form.findChild<QTreeWidget *>(QStringLiteral("rptFonts"));
        untilRowsPainted(form, grid);
        benchmark::DoNotOptimize(grid->topLevelItemCount());
        state.PauseTiming();
        form.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenProcessFontsDialog)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_OpenVendorDropDown(benchmark::State &state)
{
    Setting setting(2, int(state.range(0)));
    for (auto _ : state) {
        // A dialog of its own for each round; only opening the drop-down is timed.
        state.PauseTiming();
        frmGeneralReportFilters form;
        form.SetConfiguration(setting.file, &setting.library);
        form.show();
        runUntil([&]() { return form.isActivated(); });
        auto *grid = form.findChild<QTreeWidget *>(QStringLiteral("rptItems"));
        const QModelIndex vendorCell = grid->model()->index(1, 1);
        PaintCounter counter;
        QListView *list = nullptr;
        state.ResumeTiming();

        grid->setCurrentIndex(vendorCell);
        grid->edit(vendorCell);
        runUntil([&]() {
            if (!list) {
                QWidget *popup = QApplication::activePopupWidget();
                list = popup ? popup->findChild<QListView *>() : nullptr;
                if (list)
                    list->viewport()->installEventFilter(&counter);
            }
            return list && counter.paints > 0;
        });

        state.PauseTiming();
        if (list)
            state.counters["choices"] = double(list->model()->rowCount());
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->hide();
        form.close();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenVendorDropDown)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

// A report configuration with `count` fields and as many filters.
QByteArray configurationWithFieldsAndFilters(int count)
{
    QByteArray xml = "<?xml version=\"1.0\"?>\n<Report><Fields>\n";
    for (int i = 0; i < count; ++i)
        xml += "<Field" + QByteArray::number(i) + " label=\"Field " + QByteArray::number(i)
               + "\" size=\"1.5\"/>\n";
    xml += "</Fields><Filters>\n";
    for (int i = 0; i < count; ++i)
        xml += "<Filter" + QByteArray::number(i) + " label=\"Filter " + QByteArray::number(i)
               + "\" type=\"\" value=\"text " + QByteArray::number(i) + "\"/>\n";
    return xml + "</Filters></Report>\n";
}

// OK on a dialog opened on `count` entries: the values written back and the file saved.
template <typename Form> void okOnLargeConfiguration(benchmark::State &state, const char *grid)
{
    Setting setting(0, 0);
    const QString file = setting.host.writeSystemFile(
        QStringLiteral("Huge.rpx"), configurationWithFieldsAndFilters(int(state.range(0))));
    const qint64 loadedSize = QFileInfo(file).size();
    for (auto _ : state) {
        state.PauseTiming();
        Form form;
        form.SetConfiguration(file, &setting.library);
        untilRowsPainted(form, form.template findChild<QTreeWidget *>(QLatin1String(grid)));
        auto *ok = form.template findChild<QPushButton *>(QStringLiteral("cmdOK"));
        state.ResumeTiming();
        ok->click();
    }
    state.counters["saved/loaded"] = double(QFileInfo(file).size()) / double(loadedSize);
}

void BM_OkOnFields(benchmark::State &state)
{
    okOnLargeConfiguration<frmGeneralReportFields>(state, "rptItems");
}
BENCHMARK(BM_OkOnFields)->Arg(16000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

void BM_OkOnFilters(benchmark::State &state)
{
    okOnLargeConfiguration<frmGeneralReportFilters>(state, "rptItems");
}
BENCHMARK(BM_OkOnFilters)->Arg(16000)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

// A settings tree with `count` configurations, half shared and half the user's, each with
// a printer of its own.
struct Configurations {
    explicit Configurations(int count)
    {
        library.Initialize(&host);
        PrinterConfigurations *store = library.printerConfigurations();
        for (int i = 0; i < count; ++i) {
            const QString name = QStringLiteral("Configuration %1").arg(i, 4, 10, QLatin1Char('0'));
            const bool shared = i % 2 == 0;
            const QByteArray xml =
                "<PrinterConfiguration><Identification><System>" + QByteArray(shared ? "1" : "0")
                + "</System></Identification><PageSetup/></PrinterConfiguration>";
            shared ? host.writeSystemFile(name + QStringLiteral(".pcx"), xml)
                   : host.writeUserFile(name + QStringLiteral(".pcx"), xml);
            store->SetPrinterForConfiguration(name, QStringLiteral("Printer %1").arg(i % 7));
        }
    }
    ~Configurations() { library.PreTerminate(); }

    test::TestHost host;
    Library library;
};

void BM_OpenPrinterConfigurations(benchmark::State &state)
{
    Configurations setting(int(state.range(0)));
    for (auto _ : state) {
        frmPrinterConfigurations form;
        form.SetUp(&setting.library);
        auto *grid = form.findChild<QTreeWidget *>(QStringLiteral("rptPrinters"));
        untilRowsPainted(form, grid);
        state.counters["rows"] = double(grid->topLevelItemCount());
        state.PauseTiming();
        form.close();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_OpenPrinterConfigurations)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

// A rename in place, to the list shown again with the renamed row.
void BM_RenameConfiguration(benchmark::State &state)
{
    Configurations setting(int(state.range(0)));
    frmPrinterConfigurations form;
    form.SetUp(&setting.library);
    auto *grid = form.findChild<QTreeWidget *>(QStringLiteral("rptPrinters"));
    untilRowsPainted(form, grid);
    int round = 0;
    for (auto _ : state) {
        // A user configuration, renamed back and forth.
        QTreeWidgetItem *item = grid->topLevelItem(1);
        const QString name = item->text(0);
        item->setText(0,
                      name.endsWith(QLatin1Char('x')) ? name.chopped(1) : name + QLatin1Char('x'));
        benchmark::DoNotOptimize(grid->topLevelItemCount());
        ++round;
    }
    state.counters["renames"] = round;
}
BENCHMARK(BM_RenameConfiguration)->Arg(1000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    QApplication app(argc, argv);
    // Dialog positions go to a throw-away registry file, not the user's.
    QTemporaryDir registry;
    SetRegistryFile(registry.filePath(QStringLiteral("registry.ini")));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
