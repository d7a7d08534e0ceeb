#pragma once

#include <string>

namespace TLGateway {

// An app of the catalogue.
struct AppRecord
{
    std::string name;
    std::string serviceCode;
    std::string iconUrl;
    std::string address;
    int availability = 0; // 0: offered; 1: known, but not offered for new entries
};

} // namespace TLGateway
