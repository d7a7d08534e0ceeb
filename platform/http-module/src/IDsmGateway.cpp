#include "http-module/IDsmGateway.h"

namespace {

// Stands in while nothing is provided.
class NoDsmGateway final : public IDsmGateway
{
public:
    DsmGatewayConfig GetConfig() const override { return DsmGatewayConfig(); }
};

IDsmGateway* provided = nullptr;

} // namespace

IDsmGateway::~IDsmGateway() = default;

QDateTime IDsmGateway::GetCurrentTime() const
{
    return QDateTime::currentDateTimeUtc();
}

IDsmGateway* IDsmGateway::Instance()
{
    static NoDsmGateway none;
    return provided ? provided : &none;
}

IDsmGateway* IDsmGateway::Provided() noexcept
{
    return provided;
}

void IDsmGateway::Provide(IDsmGateway* gateway) noexcept
{
    provided = gateway;
}
