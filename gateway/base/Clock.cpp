#include "base/Clock.h"

#include <chrono>

namespace TLGateway {

UnixTime SystemTime()
{
    using namespace std::chrono;
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

} // namespace TLGateway
