#include "AutoRunCollectionEntity.h"
#include "AutoRunInfoEntity.h"
#include "HandWrittenConfiguration.h"

#include <benchmark/benchmark.h>

namespace {

/// A configuration of 12 entries, as the gateway sends it.
QByteArray TwelveEntries()
{
    HandWrittenConfiguration configuration;
    for (int i = 0; i < 12; ++i) {
        HandWrittenConfiguration::Entry entry;
        entry.itemId = QStringLiteral("{6f1c2d3e-0000-4000-8000-%1}").arg(i, 12, 10, QLatin1Char('0'));
        entry.name = QStringLiteral("Entry number %1").arg(i);
        entry.url = QStringLiteral("https://shop.example.test/pages/%1?from=start").arg(i);
        entry.systemItem = i < 2;
        entry.checked = i % 2 == 0;
        entry.activeItem = i == 4;
        entry.type = i < 7 ? 0 : 1;
        (i < 2   ? configuration.systemItems
         : i < 7 ? configuration.customItems
                 : configuration.pluginItems)
            .append(entry);
    }
    return configuration.ToJson();
}

void ParseRecords(benchmark::State& state)
{
    const QByteArray json = TwelveEntries();
    for (auto _ : state) {
        AutoRunCollectionEntity collection;
        benchmark::DoNotOptimize(collection.Parse(json));
    }
}
BENCHMARK(ParseRecords);

void ParseByHand(benchmark::State& state)
{
    const QByteArray json = TwelveEntries();
    for (auto _ : state) {
        HandWrittenConfiguration configuration;
        benchmark::DoNotOptimize(configuration.Parse(json));
    }
}
BENCHMARK(ParseByHand);

void WriteRecords(benchmark::State& state)
{
    AutoRunCollectionEntity collection;
    collection.Parse(TwelveEntries());
    for (auto _ : state) {
        benchmark::DoNotOptimize(collection.ToJson());
    }
}
BENCHMARK(WriteRecords);

void WriteByHand(benchmark::State& state)
{
    HandWrittenConfiguration configuration;
    configuration.Parse(TwelveEntries());
    for (auto _ : state) {
        benchmark::DoNotOptimize(configuration.ToJson());
    }
}
BENCHMARK(WriteByHand);

} // namespace

BENCHMARK_MAIN();
