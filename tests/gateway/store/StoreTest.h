#pragma once

#include "support/Await.h"
#include "support/LogCapture.h"
#include "support/SampleConfiguration.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace TLGateway {

// What every kind of store has promised.
class StoreTest : public testing::TestWithParam<MakeTestDatabase>
{
protected:
    void Open()
    {
        store.reset();
        store = database->Open(options, log.Logger());
    }

    void AddUser(const std::string& pin)
    {
        ASSERT_FALSE(Await([&](auto done) { store->AddUser({pin, "merchant", "hash"}, done); }));
    }

    std::optional<WriteFailure> Put(const std::string& pin, const AutoRunConfiguration& configuration)
    {
        return Await([&](auto done) {
            store->EditConfiguration(
                pin, "user", [&](const AutoRunConfiguration&) { return configuration; }, done);
        });
    }

    static AutoRunConfiguration Named(const std::string& name) { return {{}, {CustomEntry("c", name)}, {}}; }

    LogCapture log;
    UnixTime now = 1000;
    const std::unique_ptr<TestDatabase> database = GetParam()();
    TestDatabase::Options options{[this] { return now; }};
    std::unique_ptr<IStore> store;
};

} // namespace TLGateway
