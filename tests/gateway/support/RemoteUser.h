#pragma once

#include "envelope/FormParameters.h"
#include "support/HttpClient.h"

#include <boost/json/value.hpp>

#include <string>

namespace TLGateway {

// A user of a served gateway, on a connection of its own, with the app key and secret of the demo merchant
// and the real time.
class RemoteUser final
{
public:
    RemoteUser(std::uint16_t port, std::string pin, std::string belongType);

    // Throws std::runtime_error when the password is refused.
    void Login(const std::string& password);
    // Uses the access token of another connection of the same user.
    void TakeLoginOf(const RemoteUser& other) { m_token = other.m_token; }
    // Sends a signed request and gives the whole reply. Throws when the connection ends before it is there.
    boost::json::value Call(const std::string& method, const std::string& businessJson);
    boost::json::value Get();
    // True when the gateway answered that the configuration is stored.
    bool Set(const std::string& listsJson);

private:
    [[nodiscard]] std::string Caller() const;

    HttpClient m_client;
    const std::string m_pin;
    const std::string m_belongType;
    std::string m_token;
};

} // namespace TLGateway
