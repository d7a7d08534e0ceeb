#pragma once

#include "records/AutoRunEntry.h"

#include <vector>

namespace TLGateway {

// A user's configuration. The order of each list is the order in which its entries open.
struct AutoRunConfiguration
{
    std::vector<AutoRunEntry> systemItems;
    std::vector<AutoRunEntry> customItems;
    std::vector<AutoRunEntry> pluginItems;

    friend bool operator==(const AutoRunConfiguration& a, const AutoRunConfiguration& b)
    {
        return a.systemItems == b.systemItems && a.customItems == b.customItems &&
               a.pluginItems == b.pluginItems;
    }
    friend bool operator!=(const AutoRunConfiguration& a, const AutoRunConfiguration& b) { return !(a == b); }
};

} // namespace TLGateway
