#pragma once

#include "methods/IMethod.h"
#include "store/IStore.h"

namespace TLGateway {

// dsm.tl.pc.plugin.list: the apps in the operator's order.
class PluginListMethod final : public IMethod
{
public:
    // The store must outlive the method.
    explicit PluginListMethod(IStore& store);

    [[nodiscard]] std::string_view Name() const noexcept override { return "dsm.tl.pc.plugin.list"; }
    void Execute(const MethodCallPtr& call) override;

private:
    IStore& m_store;
};

} // namespace TLGateway
