#include "envelope/ReplyEnvelope.h"

#include "base/Random.h"
#include "base/Text.h"

#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

namespace TLGateway {

namespace {

std::string Reply(ErrorCode code, const std::string& message, const std::string& requestId,
                  const boost::json::value& data)
{
    boost::json::object reply;
    reply["code"] = std::to_string(static_cast<int>(code));
    reply["message"] = message;
    reply["requestId"] = requestId;
    reply["data"] = data;
    return boost::json::serialize(reply);
}

} // namespace

std::string SuccessReply(const std::string& requestId, const boost::json::value& data)
{
    return Reply(ErrorCode::Success, std::string(), requestId, data);
}

std::string RefusalReply(const std::string& requestId, const Refusal& refusal)
{
    return Reply(refusal.code, refusal.message, requestId, nullptr);
}

std::string NewRequestId()
{
    return ToHex(RandomBytes(16));
}

} // namespace TLGateway
