#include "methods/GatewayService.h"

#include "base/Hashing.h"
#include "base/Text.h"
#include "envelope/Refused.h"
#include "envelope/ReplyEnvelope.h"
#include "envelope/RequestEnvelope.h"
#include "json/BusinessJson.h"

#include <utility>

namespace TLGateway {

GatewayService::GatewayService(const AppKeyRing& keys, const MethodRegistry& methods, IStore& store,
                               Clock clock, std::shared_ptr<spdlog::logger> logger)
    : m_keys(keys), m_methods(methods), m_store(store), m_clock(std::move(clock)), m_logger(std::move(logger))
{}

void GatewayService::Handle(const std::string& body, MethodCall::Answer answer)
{
    const MethodCallPtr call = NewCall(std::move(answer));
    call->Run([&] { Dispatch(call, body); });
}

void GatewayService::Refuse(const Refusal& refusal, MethodCall::Answer answer)
{
    NewCall(std::move(answer))->Refuse(refusal);
}

MethodCallPtr GatewayService::NewCall(MethodCall::Answer answer) const
{
    return std::make_shared<MethodCall>(NewRequestId(), m_clock(), std::move(answer), m_logger);
}

void GatewayService::Dispatch(const MethodCallPtr& call, const std::string& body)
{
    const RequestEnvelope envelope = ReadEnvelope(body, m_keys, call->Now());
    call->SetMethod(envelope.method);
    IMethod* method = m_methods.Find(envelope.method);
    if (method == nullptr) {
        throw Refused(ErrorCode::UnknownMethod, "unknown method " + Quoted(envelope.method));
    }
    if (method->NeedsToken()) {
        call->SetToken(CheckToken(envelope.accessToken, call));
    }
    call->SetBusiness(ParseBusinessJson(envelope.businessJson));
    method->Execute(call);
}

TokenRecord GatewayService::CheckToken(const std::string& accessToken, const MethodCallPtr& call) const
{
    if (accessToken.empty()) {
        throw Refused(ErrorCode::TokenUnknown, "the access token is missing");
    }
    const std::string hash = Sha256(accessToken);
    std::optional<TokenRecord> token = m_store.FindToken(hash);
    if (!token || !EqualInConstantTime(token->hash, hash)) {
        throw Refused(ErrorCode::TokenUnknown, "the access token is unknown");
    }
    if (token->expiresAt <= call->Now()) {
        call->SetPin(token->pin);
        throw Refused(ErrorCode::TokenExpired, "the access token has expired");
    }
    return *std::move(token);
}

} // namespace TLGateway
