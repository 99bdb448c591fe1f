// Building the vendor choices of a vendor filter from 100,000 vendors, through the host
// contract (BRAVSQL.ExecuteRead, GetRecordValue2 per row, PreTerminate) over the sample
// host's SQLite database code.

#include "filters/DatabaseHost.h"
#include "filters/DateRanges.h"
#include "filters/FilterDefinitions.h"

#include "database/SampleData.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

namespace {

constexpr int vendorCount = 100000;

bravcpl5::test::DatabaseHost &vendorHost()
{
    static bravcpl5::test::DatabaseHost host(NewDatabase::Empty);
    static const bool filled = AddGeneratedVendors(*host.database(), vendorCount);
    Q_UNUSED(filled);
    return host;
}

void BM_VendorChoices(benchmark::State &state)
{
    auto &host = vendorHost();
    qsizetype count = 0;
    for (auto _ : state)
        count = bravcpl5::FillFilterChoices(&host, bravcpl5::FilterType::Vendor, 1).size();
    if (count != vendorCount + 1)
        state.SkipWithError("wrong number of vendors");
    state.counters["choices"] = double(count);
}
BENCHMARK(BM_VendorChoices)->Unit(benchmark::kMillisecond);

// The host's share: the query and its XML text.
void BM_VendorExecuteRead(benchmark::State &state)
{
    auto &host = vendorHost();
    for (auto _ : state)
        benchmark::DoNotOptimize(host.hostBravSql()->ExecuteRead(
            QStringLiteral("SELECT VendorName FROM Vendors ORDER BY VendorName")));
}
BENCHMARK(BM_VendorExecuteRead)->Unit(benchmark::kMillisecond);

// A custom date range read back, as OK on the filters dialog reads every one.
void BM_ParseCustomDateRange(benchmark::State &state)
{
    const QString text = QStringLiteral("Custom Date Range : 11/23/2026 to 12/31/2026");
    QDate start, end;
    for (auto _ : state) {
        bravcpl5::ParseCustomDateRange(text, start, end);
        benchmark::DoNotOptimize(end);
    }
    if (end != QDate(2026, 12, 31))
        state.SkipWithError("misread");
}
BENCHMARK(BM_ParseCustomDateRange)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
