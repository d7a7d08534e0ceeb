#include "support/Await.h"

#include <chrono>
#include <future>
#include <memory>
#include <stdexcept>

namespace TLGateway {

std::optional<WriteFailure> Await(const std::function<void(IStore::WriteDone done)>& start)
{
    // Shared: an answer that comes too late must still find it.
    const auto promise = std::make_shared<std::promise<std::optional<WriteFailure>>>();
    auto answer = promise->get_future();
    start([promise](const std::optional<WriteFailure>& failure) { promise->set_value(failure); });
    if (answer.wait_for(std::chrono::seconds(120)) != std::future_status::ready) {
        throw std::runtime_error("a write was not answered");
    }
    return answer.get();
}

} // namespace TLGateway
