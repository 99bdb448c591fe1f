// Building the vendor choices of a vendor filter from 100,000 vendors, through the host
// contract (BRAVSQL.ExecuteRead, GetRecordValue2 per row, PreTerminate) over the sample
// host's SQLite database code.

#include "filters/DatabaseHost.h"
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

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
