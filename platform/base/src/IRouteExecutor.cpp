#include "base/IRouteExecutor.h"

namespace {
IRouteExecutor* s_provided = nullptr;
} // namespace

IRouteExecutor::~IRouteExecutor() = default;

IRouteExecutor* IRouteExecutor::Provided() noexcept
{
    return s_provided;
}

void IRouteExecutor::Provide(IRouteExecutor* executor) noexcept
{
    s_provided = executor;
}
