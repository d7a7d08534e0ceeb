#include "support/RemoteUser.h"

#include "base/Clock.h"
#include "base/TimeStamp.h"
#include "demo/DemoMerchant.h"
#include "envelope/Signing.h"
#include "support/FormEncode.h"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value_to.hpp>

#include <stdexcept>
#include <utility>

namespace TLGateway {

RemoteUser::RemoteUser(std::uint16_t port, std::string pin, std::string belongType)
    : m_client(port), m_pin(std::move(pin)), m_belongType(std::move(belongType))
{}

void RemoteUser::Login(const std::string& password)
{
    const boost::json::value business = {
        {"param", {{"deviceId", "d"}, {"password", password}, {"pin", m_pin}, {"platform", "pc-win"}}}};
    const boost::json::value reply = Call("dsm.tl.pc.user.login", boost::json::serialize(business));
    if (reply.at("code") != "0") {
        throw std::runtime_error("log-in refused: " + boost::json::serialize(reply));
    }
    m_token = boost::json::value_to<std::string>(reply.at("data").at("accessToken"));
}

boost::json::value RemoteUser::Call(const std::string& method, const std::string& businessJson)
{
    FormParameters parameters = {{"method", method},
                                 {"app_key", DemoMerchant::AppKey},
                                 {"access_token", m_token},
                                 {"timestamp", FormatTimeStamp(SystemTime())},
                                 {"format", "json"},
                                 {"lang", "en"},
                                 {"region", "CN"},
                                 {"platform", "pc-win"},
                                 {"tradix_param_json", businessJson}};
    parameters["sign"] = Sign(parameters, DemoMerchant::AppSecret);
    m_client.Write(HttpClient::Post(FormEncode(parameters)));
    return boost::json::parse(m_client.Read().body);
}

boost::json::value RemoteUser::Get()
{
    return Call("dsm.tl.pc.auto.run.get", "{\"param\":" + Caller() + "}");
}

bool RemoteUser::Set(const std::string& listsJson)
{
    const std::string business = "{\"baseInfo\":" + Caller() + ",\"workstationSetResult\":" + listsJson + "}";
    return Call("dsm.tl.pc.auto.run.set", business).at("code") == "0";
}

std::string RemoteUser::Caller() const
{
    return boost::json::serialize(boost::json::value(
        {{"belongType", m_belongType}, {"deviceId", "d"}, {"pin", m_pin}, {"platform", "pc-win"}}));
}

} // namespace TLGateway
