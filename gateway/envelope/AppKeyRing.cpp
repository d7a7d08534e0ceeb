#include "envelope/AppKeyRing.h"

#include <utility>

namespace TLGateway {

void AppKeyRing::Replace(Secrets secrets)
{
    auto replacement = std::make_shared<const Secrets>(std::move(secrets));
    const std::lock_guard lock(m_mutex);
    m_secrets.swap(replacement);
}

std::optional<std::string> AppKeyRing::FindSecret(std::string_view appKey) const
{
    std::shared_ptr<const Secrets> secrets;
    {
        const std::lock_guard lock(m_mutex);
        secrets = m_secrets;
    }
    const auto found = secrets->find(appKey);
    return found == secrets->end() ? std::nullopt : std::optional(found->second);
}

} // namespace TLGateway
