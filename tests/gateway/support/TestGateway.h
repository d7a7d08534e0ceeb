#pragma once

#include "base/WorkerPool.h"
#include "envelope/FormParameters.h"
#include "methods/GatewayService.h"
#include "methods/LoginMethod.h"
#include "methods/PasswordHasher.h"
#include "store/sqlite/SqliteStore.h"
#include "support/CountingStore.h"
#include "support/LogCapture.h"
#include "support/TemporaryFolder.h"

#include <boost/json/value.hpp>

#include <memory>
#include <string>

namespace TLGateway {

// The whole gateway but for its sockets, on a fresh database, with a clock that a test sets. It knows the app
// key "k" with the secret "secret" and the users "anna" (merchant) and "bert" (supplier), password "pw".
class TestGateway final
{
public:
    struct Reply
    {
        int code = -1;
        int httpStatus = 0;
        std::string message;
        std::string requestId;
        boost::json::value data;
    };

    // The file of the options is ignored.
    explicit TestGateway(SqliteStore::Options options = {}, std::size_t loginQueueLimit = 16);
    ~TestGateway();

    static constexpr UnixTime Start = 1790000000; // 2026-09-21 13:33:20

    // All parameters of a good request but the sign.
    [[nodiscard]] FormParameters Envelope(const std::string& method, const std::string& businessJson,
                                          const std::string& accessToken) const;
    // Signs with the right secret and sends.
    Reply Send(FormParameters parameters);
    // Sends the parameters as they are.
    Reply SendUnsigned(const FormParameters& parameters);
    Reply SendBody(const std::string& body);

    Reply Login(const std::string& pin, const std::string& password, const std::string& device = "device-1");
    // Logs in and gives the token; throws when that fails.
    std::string TokenOf(const std::string& pin, const std::string& device = "device-1");

    // {"belongType":…,"deviceId":…,"pin":…,"platform":"pc-win"}
    [[nodiscard]] static std::string Caller(const std::string& pin,
                                            const std::string& belongType = "merchant",
                                            const std::string& device = "device-1");
    // Business JSON of the reads and of the write.
    [[nodiscard]] static std::string Param(const std::string& pin)
    {
        return "{\"param\":" + Caller(pin) + "}";
    }
    [[nodiscard]] static std::string SetRequest(const std::string& pin,
                                                const AutoRunConfiguration& configuration);
    [[nodiscard]] static std::string SetRequest(const std::string& pin, const std::string& listsJson);

    Reply Get(const std::string& pin, const std::string& token);
    Reply Set(const std::string& pin, const std::string& token, const AutoRunConfiguration& configuration);
    void Import(const std::string& pin, const AutoRunConfiguration& configuration);

    [[nodiscard]] std::string Log() const { return m_log.Text(); }
    [[nodiscard]] const LogCapture& Capture() const noexcept { return m_log; }
    [[nodiscard]] SqliteStore& Store() noexcept { return *m_store; }
    [[nodiscard]] CountingStore& Counts() noexcept { return *m_counts; }
    [[nodiscard]] GatewayService& Service() noexcept { return *m_service; }
    [[nodiscard]] std::string DatabaseFile() const { return m_folder.File("gateway.db"); }
    [[nodiscard]] UnixTime Now() const noexcept { return *m_now; }
    void Advance(UnixTime seconds) { *m_now += seconds; }

private:
    TemporaryFolder m_folder;
    LogCapture m_log;
    std::shared_ptr<std::atomic<UnixTime>> m_now;
    std::unique_ptr<SqliteStore> m_store;
    std::unique_ptr<CountingStore> m_counts;
    AppKeyRing m_keys;
    PasswordHasher m_hasher;
    WorkerPool m_hashers;
    MethodRegistry m_methods;
    std::unique_ptr<GatewayService> m_service;
};

} // namespace TLGateway
