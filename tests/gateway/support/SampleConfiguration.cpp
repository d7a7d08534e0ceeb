#include "support/SampleConfiguration.h"

namespace TLGateway {

AutoRunEntry SystemEntry(const std::string& itemId, bool checked, bool active)
{
    return {itemId, "System " + itemId, "https://example.com/" + itemId, true, checked, active, 0};
}

AutoRunEntry CustomEntry(const std::string& itemId, const std::string& name)
{
    return {itemId, name, "https://example.org/" + itemId, false, true, false, 0};
}

AutoRunEntry AppEntry(const std::string& itemId, const std::string& code)
{
    return {itemId, "App " + itemId, code, false, true, false, 1};
}

AutoRunConfiguration SampleConfiguration()
{
    return {{SystemEntry("s1"), SystemEntry("s2")}, {CustomEntry("c1"), CustomEntry("c2")}, {AppEntry("a1")}};
}

} // namespace TLGateway
