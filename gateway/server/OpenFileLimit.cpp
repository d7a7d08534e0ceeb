#include "OpenFileLimit.h"

#if defined(__unix__) || defined(__APPLE__)
#include <sys/resource.h>

#include <algorithm>
#endif

namespace TLGateway {

#if defined(__unix__) || defined(__APPLE__)

void RaiseOpenFileLimit(std::size_t connections) noexcept
{
    // In addition to the connections: the database and its readers, the log, the listener.
    constexpr rlim_t others = 256;
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) {
        return;
    }
    const rlim_t wanted = static_cast<rlim_t>(connections) + others;
    if (limit.rlim_cur < wanted) {
        limit.rlim_cur = limit.rlim_max == RLIM_INFINITY ? wanted : std::min(wanted, limit.rlim_max);
        setrlimit(RLIMIT_NOFILE, &limit);
    }
}

#else

void RaiseOpenFileLimit(std::size_t) noexcept {}

#endif

} // namespace TLGateway
