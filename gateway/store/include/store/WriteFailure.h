#pragma once

#include <string>

namespace TLGateway {

// Why a write is not stored.
struct WriteFailure
{
    enum class Reason
    {
        QueueFull,      // too many writes are waiting
        Closing,        // the store is closing
        StoreFailed,    // the log has the details
        OutcomeUnknown, // the store closed before the server said whether it has the write
        UserExists,
        NoSuchUser,
        EditRefused, // the edit threw InvalidInput, whose text this is
        Internal,    // a fault of the gateway; the log has the details
    };

    explicit WriteFailure(Reason why);
    WriteFailure(Reason why, std::string text);

    Reason reason;
    std::string message; // for the one who asked for the write; says nothing about the database
};

} // namespace TLGateway
