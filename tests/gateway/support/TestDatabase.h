#pragma once

#include "store/IStore.h"

#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// A fresh database for one test, of the kind that the test is run for.
class TestDatabase
{
public:
    struct Options
    {
        Clock clock = &SystemTime;
        std::size_t queueLimit = 1024;
        bool mustExist = false;
    };

    TestDatabase() = default;
    TestDatabase(const TestDatabase&) = delete;
    TestDatabase& operator=(const TestDatabase&) = delete;
    virtual ~TestDatabase() = default;

    // Several stores may be open at once.
    [[nodiscard]] virtual std::unique_ptr<IStore> Open(const Options& options,
                                                       std::shared_ptr<spdlog::logger> logger) = 0;
    // Runs a statement as another program, past the stores.
    virtual void Execute(const std::string& sql) = 0;
};

using MakeTestDatabase = std::unique_ptr<TestDatabase> (*)();

} // namespace TLGateway
