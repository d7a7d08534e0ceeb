#pragma once

#include "methods/IMethod.h"
#include "store/IStore.h"

namespace TLGateway {

// dsm.tl.pc.auto.run.set: replaces the user's configuration except the operator's entries.
class AutoRunSetMethod final : public IMethod
{
public:
    // The store must outlive the method.
    explicit AutoRunSetMethod(IStore& store);

    [[nodiscard]] std::string_view Name() const noexcept override { return "dsm.tl.pc.auto.run.set"; }
    void Execute(const MethodCallPtr& call) override;

private:
    IStore& m_store;
};

} // namespace TLGateway
