#include "store/WriteFailure.h"

#include <utility>

namespace TLGateway {

namespace {

const char* TextOf(WriteFailure::Reason reason) noexcept
{
    switch (reason) {
    case WriteFailure::Reason::QueueFull:
        return "too many writes are waiting; try again";
    case WriteFailure::Reason::Closing:
        return "the gateway is shutting down; try again";
    case WriteFailure::Reason::StoreFailed:
        return "the store failed; the gateway's log has the details";
    case WriteFailure::Reason::OutcomeUnknown:
        return "it is not known whether this is stored; the gateway's log has the details";
    case WriteFailure::Reason::UserExists:
        return "there is already a user with this pin";
    case WriteFailure::Reason::NoSuchUser:
        return "there is no user with this pin";
    case WriteFailure::Reason::EditRefused:
        return "the edit was refused";
    case WriteFailure::Reason::Internal:
        return "internal error";
    }
    return "";
}

} // namespace

WriteFailure::WriteFailure(Reason why) : WriteFailure(why, TextOf(why)) {}

WriteFailure::WriteFailure(Reason why, std::string text) : reason(why), message(std::move(text)) {}

} // namespace TLGateway
