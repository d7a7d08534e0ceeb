#include "support/TestGateway.h"

#include "base/TimeStamp.h"
#include "envelope/Signing.h"
#include "methods/AllMethods.h"
#include "records/ConfigurationJson.h"
#include "support/Await.h"
#include "support/FormEncode.h"

#include <boost/json/object.hpp>
#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value_to.hpp>

#include <chrono>
#include <future>
#include <stdexcept>

namespace TLGateway {

namespace {

// As little as Argon2 allows: the tests are not about its cost.
constexpr PasswordHasher::Cost CheapHash = {1, 8, 1};
constexpr UnixTime TokenLifetime = 3600;

} // namespace

TestGateway::TestGateway(SqliteStore::Options options, std::size_t loginQueueLimit)
    : m_now(std::make_shared<std::atomic<UnixTime>>(Start))
    , m_hasher(CheapHash)
    , m_hashers(2, loginQueueLimit)
{
    options.file = DatabaseFile();
    options.clock = [now = m_now] { return now->load(); };
    m_store = std::make_unique<SqliteStore>(options, m_log.Logger());
    m_counts = std::make_unique<CountingStore>(*m_store);
    m_keys.Replace({{"k", "secret"}});
    for (const auto& user : {UserRecord{"anna", "merchant", {}}, UserRecord{"bert", "supplier", {}}}) {
        const UserRecord record{user.pin, user.belongType, m_hasher.Hash("pw")};
        if (Await([&](IStore::WriteDone done) { m_store->AddUser(record, std::move(done)); })) {
            throw std::runtime_error("cannot add a user");
        }
    }
    AddAllMethods(m_methods, *m_counts, m_hasher, m_hashers, TokenLifetime);
    m_service = std::make_unique<GatewayService>(m_keys, m_methods, *m_counts, options.clock, m_log.Logger());
}

TestGateway::~TestGateway()
{
    m_hashers.Close();
    m_store->Close();
}

FormParameters TestGateway::Envelope(const std::string& method, const std::string& businessJson,
                                     const std::string& accessToken) const
{
    return {{"method", method},
            {"app_key", "k"},
            {"access_token", accessToken},
            {"timestamp", FormatTimeStamp(Now())},
            {"format", "json"},
            {"lang", "en"},
            {"region", ""},
            {"platform", "pc-win"},
            {"tradix_param_json", businessJson}};
}

TestGateway::Reply TestGateway::Send(FormParameters parameters)
{
    parameters["sign"] = Sign(parameters, "secret");
    return SendUnsigned(parameters);
}

TestGateway::Reply TestGateway::SendUnsigned(const FormParameters& parameters)
{
    return SendBody(FormEncode(parameters));
}

TestGateway::Reply TestGateway::SendBody(const std::string& body)
{
    const auto promise = std::make_shared<std::promise<std::pair<ErrorCode, std::string>>>();
    auto answer = promise->get_future();
    m_service->Handle(body, [promise](ErrorCode code, const std::string& json) {
        promise->set_value({code, json});
    });
    if (answer.wait_for(std::chrono::seconds(30)) != std::future_status::ready) {
        throw std::runtime_error("a request was not answered");
    }
    const auto [code, json] = answer.get();
    const boost::json::value value = boost::json::parse(json);
    Reply reply;
    reply.code = std::stoi(boost::json::value_to<std::string>(value.at("code")));
    reply.httpStatus = HttpStatus(code);
    reply.message = boost::json::value_to<std::string>(value.at("message"));
    reply.requestId = boost::json::value_to<std::string>(value.at("requestId"));
    reply.data = value.at("data");
    if (reply.code != static_cast<int>(code)) {
        throw std::runtime_error("the reply's code is not the one that was reported");
    }
    return reply;
}

TestGateway::Reply TestGateway::Login(const std::string& pin, const std::string& password,
                                      const std::string& device)
{
    boost::json::object param;
    param["deviceId"] = device;
    param["password"] = password;
    param["pin"] = pin;
    param["platform"] = "pc-win";
    boost::json::object business;
    business["param"] = param;
    return Send(Envelope("dsm.tl.pc.user.login", boost::json::serialize(business), ""));
}

std::string TestGateway::TokenOf(const std::string& pin, const std::string& device)
{
    const Reply reply = Login(pin, "pw", device);
    if (reply.code != 0) {
        throw std::runtime_error("cannot log in: " + reply.message);
    }
    return boost::json::value_to<std::string>(reply.data.at("accessToken"));
}

std::string TestGateway::Caller(const std::string& pin, const std::string& belongType,
                                const std::string& device)
{
    boost::json::object caller;
    caller["belongType"] = belongType;
    caller["deviceId"] = device;
    caller["pin"] = pin;
    caller["platform"] = "pc-win";
    return boost::json::serialize(caller);
}

std::string TestGateway::SetRequest(const std::string& pin, const AutoRunConfiguration& configuration)
{
    return SetRequest(pin, boost::json::serialize(ToJson(configuration)));
}

std::string TestGateway::SetRequest(const std::string& pin, const std::string& listsJson)
{
    return "{\"baseInfo\":" + Caller(pin) + ",\"workstationSetResult\":" + listsJson + "}";
}

TestGateway::Reply TestGateway::Get(const std::string& pin, const std::string& token)
{
    return Send(Envelope("dsm.tl.pc.auto.run.get", Param(pin), token));
}

TestGateway::Reply TestGateway::Set(const std::string& pin, const std::string& token,
                                    const AutoRunConfiguration& configuration)
{
    return Send(Envelope("dsm.tl.pc.auto.run.set", SetRequest(pin, configuration), token));
}

void TestGateway::Import(const std::string& pin, const AutoRunConfiguration& configuration)
{
    const auto refusal = Await([&](IStore::WriteDone done) {
        m_store->EditConfiguration(
            pin, "operator", [&](const AutoRunConfiguration&) { return configuration; }, std::move(done));
    });
    if (refusal) {
        throw std::runtime_error("cannot import: " + refusal->message);
    }
}

} // namespace TLGateway
