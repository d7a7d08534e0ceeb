#pragma once

#include "methods/IMethod.h"
#include "store/IStore.h"

namespace TLGateway {

// dsm.tl.pc.auto.run.get: the user's configuration.
class AutoRunGetMethod final : public IMethod
{
public:
    // The store must outlive the method.
    explicit AutoRunGetMethod(IStore& store);

    [[nodiscard]] std::string_view Name() const noexcept override { return "dsm.tl.pc.auto.run.get"; }
    void Execute(const MethodCallPtr& call) override;

private:
    IStore& m_store;
};

} // namespace TLGateway
