// The label products of the installed gLabels templates (glabels-data): the whole database
// loaded once, as the page setup's product picker and the tool load it, and one keystroke's
// filtering of every product. Goals: loading in at most 150 ms; a keystroke in at most 5 ms.

#include "printing/LabelProducts.h"

#include <QStringList>
#include <benchmark/benchmark.h>
#include <string>

namespace {

using namespace bravcpl5;

void LoadAllProducts(benchmark::State &state)
{
    const QStringList folders = LabelTemplateFolders();
    qsizetype count = 0;
    for (auto _ : state) {
        LabelDatabase database = LoadLabelProducts(folders);
        benchmark::DoNotOptimize(database);
        count = database.products.size();
    }
    if (count == 0)
        state.SkipWithError("no label products installed (scripts/install-deps)");
    state.SetLabel(std::to_string(count) + " products");
}

// The search as a user types it, one keystroke at a time: "a", "av", ... "avery 5160".
void FilterOneKeystroke(benchmark::State &state)
{
    const LabelDatabase database = LoadLabelProducts(LabelTemplateFolders());
    if (database.products.isEmpty()) {
        state.SkipWithError("no label products installed (scripts/install-deps)");
        return;
    }
    const QString typed = QStringLiteral("avery 5160");
    qsizetype length = 0;
    for (auto _ : state) {
        length = length % typed.size() + 1;
        benchmark::DoNotOptimize(FilterLabelProducts(database.products, typed.first(length)));
    }
}

} // namespace

BENCHMARK(LoadAllProducts)->Unit(benchmark::kMillisecond);
BENCHMARK(FilterOneKeystroke)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
