#pragma once

#include "records/AppRecord.h"
#include "records/AutoRunConfiguration.h"

#include <string>
#include <vector>

namespace TLGateway {

// What the demo merchant finds after the log-in. All addresses lie below the base address of the demo pages,
// for example "http://127.0.0.1:8080", without a trailing slash.
struct DemoMerchant
{
    static constexpr const char* Pin = "demo";
    static constexpr const char* Password = "demo";
    static constexpr const char* BelongType = "merchant";
    static constexpr const char* AppKey = "tl-client";
    static constexpr const char* AppSecret = "tl-client-development-secret";
    static constexpr int FunctionSwitchNumber = 8;

    [[nodiscard]] static AutoRunConfiguration Configuration(const std::string& base);
    [[nodiscard]] static std::vector<AppRecord> Apps(const std::string& base);
};

} // namespace TLGateway
