#include "CommandContext.h"

#include "CommandError.h"
#include "base/Text.h"
#include "methods/Caller.h"
#include "methods/LoginMethod.h"
#include "store/opener/OpenStore.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <future>
#include <istream>
#include <iterator>
#include <utility>

namespace TLGateway {

namespace {

constexpr std::uintmax_t MaxFileSize = 16777216;

} // namespace

std::unique_ptr<IStore> CommandContext::OpenStore(Database database) const
{
    OpenStoreOptions options;
    options.mustExist = database == Database::MustExist;
    return TLGateway::OpenStore(databaseUrl, options, logger);
}

std::string CommandContext::ReadSecretLine(const std::string& what) const
{
    std::string line;
    std::getline(in, line);
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    if (line.empty()) {
        throw CommandError("no " + what + " on standard input: pass it there as one line");
    }
    if (!IsValidUtf8(line)) {
        throw CommandError("the " + what + " is not valid UTF-8");
    }
    if (CountCodePoints(line) > LoginMethod::MaxPasswordLength) {
        throw CommandError("the " + what + " is longer than " +
                           std::to_string(LoginMethod::MaxPasswordLength) + " characters");
    }
    return line;
}

void AwaitWrite(const std::function<void(IStore::WriteDone done)>& start)
{
    std::promise<std::optional<WriteFailure>> promise;
    start([&promise](const std::optional<WriteFailure>& failure) { promise.set_value(failure); });
    if (const std::optional<WriteFailure> failure = promise.get_future().get()) {
        throw CommandError(failure->message);
    }
}

std::string ReadTextFile(const std::string& path)
{
    const std::filesystem::path file = std::filesystem::u8path(path);
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (error) {
        throw CommandError("cannot read " + path + ": " + error.message());
    }
    if (size > MaxFileSize) {
        throw CommandError("cannot read " + path + ": larger than 16 MiB");
    }
    std::ifstream stream(file, std::ios::binary);
    std::string content{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream) {
        throw CommandError("cannot read " + path);
    }
    if (!IsValidUtf8(content)) {
        throw CommandError("cannot read " + path + ": not valid UTF-8");
    }
    return content;
}

void CheckIdentifier(const std::string& text, const std::string& what)
{
    const bool hasControls =
        std::any_of(text.begin(), text.end(), [](char c) { return (c >= 0 && c < 0x20) || c == 0x7F; });
    if (text.empty() || !IsValidUtf8(text) || hasControls || CountCodePoints(text) > MaxCallerTextLength) {
        throw CommandError(what + " " + Quoted(text) + ": expected 1 to " +
                           std::to_string(MaxCallerTextLength) + " characters without control characters");
    }
}

} // namespace TLGateway
