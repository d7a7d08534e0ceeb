#pragma once

#include "methods/IMethod.h"
#include "store/IStore.h"

namespace TLGateway {

// dsm.tl.pc.user.logout: ends the access token.
class LogoutMethod final : public IMethod
{
public:
    // The store must outlive the method.
    explicit LogoutMethod(IStore& store);

    [[nodiscard]] std::string_view Name() const noexcept override { return "dsm.tl.pc.user.logout"; }
    void Execute(const MethodCallPtr& call) override;

private:
    IStore& m_store;
};

} // namespace TLGateway
