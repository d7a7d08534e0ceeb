#include "store/postgres/PostgresStore.h"
#include "store/sqlite/SqliteStore.h"
#include "support/PostgresServer.h"
#include "support/SampleConfiguration.h"
#include "support/TemporaryFolder.h"

#include <benchmark/benchmark.h>
#include <spdlog/logger.h>

#include <functional>
#include <future>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

// Compares the gateway's two stores, both on the disk of the temporary folder.
namespace TLGateway {

namespace {

constexpr int Users = 100;

std::shared_ptr<spdlog::logger> Silent()
{
    return std::make_shared<spdlog::logger>("silent");
}

// Queues all of them at once and returns when the last is answered.
void RunWrites(int count, const std::function<void(int number, IStore::WriteDone done)>& start)
{
    std::vector<std::promise<bool>> answers(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        start(i, [&answers, i](const std::optional<WriteFailure>& failure) {
            answers[static_cast<std::size_t>(i)].set_value(!failure);
        });
    }
    for (auto& answer : answers) {
        if (!answer.get_future().get()) {
            throw std::runtime_error("a write was refused");
        }
    }
}

std::string Pin(int user)
{
    return "user" + std::to_string(user);
}

void Edit(IStore& store, int user, IStore::WriteDone done)
{
    store.EditConfiguration(
        Pin(user), "user", [](const AutoRunConfiguration&) { return SampleConfiguration(); },
        std::move(done));
}

void Fill(IStore& store)
{
    RunWrites(Users, [&](int user, IStore::WriteDone done) {
        store.AddUser({Pin(user), "m", "h"}, std::move(done));
    });
    RunWrites(Users, [&](int user, IStore::WriteDone done) {
        store.AddToken({"token" + std::to_string(user), Pin(user), "m", "d", 1}, 0, std::move(done));
    });
    RunWrites(Users, [&](int user, IStore::WriteDone done) { Edit(store, user, std::move(done)); });
}

IStore& Sqlite()
{
    static const TemporaryFolder folder;
    static SqliteStore store({folder.File("a.db")}, Silent());
    static const bool isFilled = (Fill(store), true);
    static_cast<void>(isFilled);
    return store;
}

std::unique_ptr<PostgresStore> OpenPostgres()
{
    static const std::string url = PostgresServer::Shared().NewDatabase();
    PostgresStore::Options options;
    options.url = url;
    return std::make_unique<PostgresStore>(options, Silent());
}

IStore& Postgres()
{
    static const auto server = &PostgresServer::Shared(); // ends after the store
    static const auto store = OpenPostgres();
    static const bool isFilled = (Fill(*store), true);
    static_cast<void>(server);
    static_cast<void>(isFilled);
    return *store;
}

void ReadToken(benchmark::State& state, IStore& (*store)())
{
    IStore& under = store();
    int user = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(under.FindToken("token" + std::to_string(user++ % Users)));
    }
}

void ReadConfiguration(benchmark::State& state, IStore& (*store)())
{
    IStore& under = store();
    int user = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(under.FindConfiguration(Pin(user++ % Users)));
    }
}

void HundredEdits(benchmark::State& state, IStore& (*store)())
{
    IStore& under = store();
    for (auto _ : state) {
        RunWrites(Users, [&](int user, IStore::WriteDone done) { Edit(under, user, std::move(done)); });
    }
}

void OneEdit(benchmark::State& state, IStore& (*store)())
{
    IStore& under = store();
    for (auto _ : state) {
        RunWrites(1, [&](int, IStore::WriteDone done) { Edit(under, 0, std::move(done)); });
    }
}

// As from two gateways with half of the users each.
void HundredEditsThroughTwoStores(benchmark::State& state)
{
    IStore& first = Postgres();
    const auto second = OpenPostgres();
    for (auto _ : state) {
        RunWrites(Users, [&](int user, IStore::WriteDone done) {
            Edit(user % 2 == 0 ? first : *second, user, std::move(done));
        });
    }
}

BENCHMARK_CAPTURE(ReadToken, sqlite, &Sqlite)->UseRealTime();
BENCHMARK_CAPTURE(ReadToken, postgres, &Postgres)->UseRealTime();
BENCHMARK_CAPTURE(ReadConfiguration, sqlite, &Sqlite)->UseRealTime();
BENCHMARK_CAPTURE(ReadConfiguration, postgres, &Postgres)->UseRealTime();
BENCHMARK_CAPTURE(OneEdit, sqlite, &Sqlite)->UseRealTime();
BENCHMARK_CAPTURE(OneEdit, postgres, &Postgres)->UseRealTime();
BENCHMARK_CAPTURE(HundredEdits, sqlite, &Sqlite)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(HundredEdits, postgres, &Postgres)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(HundredEditsThroughTwoStores)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace

} // namespace TLGateway

BENCHMARK_MAIN();
