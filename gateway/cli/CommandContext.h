#pragma once

#include "store/IStore.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

namespace spdlog {
class logger;
}

namespace TLGateway {

// What the commands share: the streams, the database they work on, and how to use both.
struct CommandContext
{
    enum class Database
    {
        MustExist,
        MayBeMade,
    };

    std::istream& in;
    std::ostream& out;
    std::shared_ptr<spdlog::logger> logger; // writes to standard error
    std::string databaseUrl;

    // Opens the store that --database names. Throws StoreError or std::invalid_argument.
    [[nodiscard]] std::unique_ptr<IStore> OpenStore(Database database) const;

    // One line of standard input without its line end, for example a password. Throws CommandError when it is
    // empty, too long or not UTF-8; `what` names it.
    [[nodiscard]] std::string ReadSecretLine(const std::string& what) const;
};

// Starts a write and waits for its end. Throws CommandError with the failure's text.
void AwaitWrite(const std::function<void(IStore::WriteDone done)>& start);

// The content of a file [UTF-8 path]. Throws CommandError.
[[nodiscard]] std::string ReadTextFile(const std::string& path);

// Throws CommandError unless the text is 1 to 128 characters of UTF-8 without control characters.
void CheckIdentifier(const std::string& text, const std::string& what);

} // namespace TLGateway
