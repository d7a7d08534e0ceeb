#pragma once

#include "methods/IMethod.h"
#include "store/IStore.h"

namespace TLGateway {

// dsm.tl.pc.function.list: the function switches that the operator has set.
class FunctionListMethod final : public IMethod
{
public:
    // The store must outlive the method.
    explicit FunctionListMethod(IStore& store);

    [[nodiscard]] std::string_view Name() const noexcept override { return "dsm.tl.pc.function.list"; }
    void Execute(const MethodCallPtr& call) override;

private:
    IStore& m_store;
};

} // namespace TLGateway
