#include "frame-core/IModuleEventDispatch.h"

namespace {

class SilentModuleEventDispatch final : public IModuleEventDispatch
{
public:
    void DispatchModuleEvent(const QString&, const ModuleEvent&) override {}
};

IModuleEventDispatch* s_provided = nullptr;

} // namespace

IModuleEventDispatch::~IModuleEventDispatch() = default;

IModuleEventDispatch* IModuleEventDispatch::GetDispatch()
{
    static SilentModuleEventDispatch silent;
    return s_provided ? s_provided : &silent;
}

IModuleEventDispatch* IModuleEventDispatch::Provided() noexcept
{
    return s_provided;
}

void IModuleEventDispatch::Provide(IModuleEventDispatch* dispatch) noexcept
{
    s_provided = dispatch;
}
