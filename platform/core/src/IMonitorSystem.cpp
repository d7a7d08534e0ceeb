#include "core/IMonitorSystem.h"

namespace {

class SilentMonitorSystem final : public IMonitorSystem
{
public:
    void ReportEvent(const QString&, const QString&, const QStringList&) override {}
};

IMonitorSystem* s_provided = nullptr;

} // namespace

IMonitorSystem::~IMonitorSystem() = default;

IMonitorSystem* IMonitorSystem::GetMonitorSystem()
{
    static SilentMonitorSystem silent;
    return s_provided ? s_provided : &silent;
}

IMonitorSystem* IMonitorSystem::Provided() noexcept
{
    return s_provided;
}

void IMonitorSystem::Provide(IMonitorSystem* monitor) noexcept
{
    s_provided = monitor;
}
