#pragma once

#include <map>
#include <string>
#include <string_view>

namespace TLGateway {

// The pages of the demo merchant and their icons, ready to be sent. Read-only once made; any thread.
class DemoPages final
{
public:
    struct Page
    {
        std::string contentType;
        std::string content;
    };

    DemoPages();

    // By the path below /demo/ ("orders", "icons/orders.svg"); null when there is none.
    [[nodiscard]] const Page* Find(std::string_view path) const noexcept;

private:
    std::map<std::string, Page, std::less<>> m_pages;
};

} // namespace TLGateway
