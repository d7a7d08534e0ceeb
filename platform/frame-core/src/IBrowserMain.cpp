#include "frame-core/IBrowserMain.h"

namespace {
IBrowserMain* s_provided = nullptr;
} // namespace

IBrowserMain::~IBrowserMain() = default;

IBrowserMain* IBrowserMain::Provided() noexcept
{
    return s_provided;
}

void IBrowserMain::Provide(IBrowserMain* browser) noexcept
{
    s_provided = browser;
}

IBrowserMain* IBrowserMain::GetBrowser() noexcept
{
    return s_provided;
}
