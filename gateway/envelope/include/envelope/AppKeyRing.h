#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

namespace TLGateway {

// The app secrets, in memory, so that a request can be checked before the store is touched. Any thread.
class AppKeyRing final
{
public:
    using Secrets = std::map<std::string, std::string, std::less<>>;

    AppKeyRing() = default;
    AppKeyRing(const AppKeyRing&) = delete;
    AppKeyRing& operator=(const AppKeyRing&) = delete;

    // Replaces all keys.
    void Replace(Secrets secrets);

    [[nodiscard]] std::optional<std::string> FindSecret(std::string_view appKey) const;

private:
    mutable std::mutex m_mutex;
    std::shared_ptr<const Secrets> m_secrets = std::make_shared<const Secrets>();
};

} // namespace TLGateway
