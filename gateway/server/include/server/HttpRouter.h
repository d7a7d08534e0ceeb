#pragma once

#include "base/WorkerPool.h"
#include "methods/GatewayService.h"
#include "server/HttpReply.h"

#include <functional>
#include <string>
#include <string_view>

namespace TLGateway {

class DemoPages;

// Routes each address: /gateway, /health and, when there are any, the demo pages.
class HttpRouter final
{
public:
    using Answer = std::function<void(HttpReply)>;

    // Null pages: there are no demo pages. All that is passed in must outlive the router.
    HttpRouter(GatewayService& service, WorkerPool& workers, const DemoPages* pages);

    // Never blocks. `answer` is called exactly once, on any thread, maybe before this returns.
    void Route(std::string_view method, std::string_view target, std::string body, Answer answer);

    // The reply to a request that the server could not or would not read.
    void Refuse(const Refusal& refusal, Answer answer);

private:
    void RouteToService(std::string body, Answer answer);
    void RefuseMethod(const std::string& allowed, Answer answer);

    GatewayService& m_service;
    WorkerPool& m_workers;
    const DemoPages* const m_pages;
};

} // namespace TLGateway
