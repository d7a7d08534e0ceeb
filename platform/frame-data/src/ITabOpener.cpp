#include "frame-data/ITabOpener.h"

namespace {
ITabOpener* s_provided = nullptr;
} // namespace

ITabOpener::~ITabOpener() = default;

ITabOpener* ITabOpener::Provided() noexcept
{
    return s_provided;
}

void ITabOpener::Provide(ITabOpener* opener) noexcept
{
    s_provided = opener;
}
