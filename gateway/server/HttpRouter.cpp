#include "server/HttpRouter.h"

#include "base/Text.h"
#include "demo/DemoPages.h"
#include "envelope/ErrorCode.h"

#include <memory>
#include <utility>

namespace TLGateway {

namespace {

constexpr std::string_view DemoPrefix = "/demo/";

MethodCall::Answer ToHttp(HttpRouter::Answer answer)
{
    return [answer = std::move(answer)](ErrorCode code, std::string json) {
        HttpReply reply;
        reply.status = HttpStatus(code);
        reply.body = std::move(json);
        answer(std::move(reply));
    };
}

} // namespace

HttpRouter::HttpRouter(GatewayService& service, WorkerPool& workers, const DemoPages* pages)
    : m_service(service), m_workers(workers), m_pages(pages)
{}

void HttpRouter::Route(std::string_view method, std::string_view target, std::string body, Answer answer)
{
    const std::string_view path = target.substr(0, target.find('?'));
    const bool isRead = method == "GET" || method == "HEAD";
    if (path == "/gateway") {
        if (method != "POST") {
            RefuseMethod("POST", std::move(answer));
            return;
        }
        RouteToService(std::move(body), std::move(answer));
        return;
    }
    if (path == "/health") {
        if (!isRead) {
            RefuseMethod("GET, HEAD", std::move(answer));
            return;
        }
        HttpReply reply;
        reply.body = R"({"status":"ok"})";
        answer(std::move(reply));
        return;
    }
    if (m_pages != nullptr && path.substr(0, DemoPrefix.size()) == DemoPrefix) {
        if (const DemoPages::Page* page = m_pages->Find(path.substr(DemoPrefix.size()))) {
            if (!isRead) {
                RefuseMethod("GET, HEAD", std::move(answer));
                return;
            }
            HttpReply reply;
            reply.contentType = page->contentType;
            reply.body = page->content;
            answer(std::move(reply));
            return;
        }
    }
    Refuse({ErrorCode::NoSuchResource, "there is nothing at " + Quoted(path)}, std::move(answer));
}

void HttpRouter::Refuse(const Refusal& refusal, Answer answer)
{
    m_service.Refuse(refusal, ToHttp(std::move(answer)));
}

void HttpRouter::RouteToService(std::string body, Answer answer)
{
    // Shared, since a std::function must be copyable and the body should not be copied.
    auto shared = std::make_shared<std::pair<std::string, Answer>>(std::move(body), answer);
    const bool taken = m_workers.TryPost(
        [this, shared] { m_service.Handle(shared->first, ToHttp(std::move(shared->second))); });
    if (!taken) {
        Refuse({ErrorCode::Busy, "too many requests are waiting; try again"}, std::move(answer));
    }
}

void HttpRouter::RefuseMethod(const std::string& allowed, Answer answer)
{
    Refuse({ErrorCode::NoSuchResource, "this address takes " + allowed + " only"},
           [allowed, answer = std::move(answer)](HttpReply reply) {
               reply.status = 405;
               reply.allow = allowed;
               answer(std::move(reply));
           });
}

} // namespace TLGateway
