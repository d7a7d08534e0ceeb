#include "server/HttpServer.h"

#include "envelope/Signing.h"
#include "support/FormEncode.h"
#include "support/HttpClient.h"
#include "support/RunningServer.h"
#include "support/SampleConfiguration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <future>
#include <stdexcept>
#include <string>
#include <vector>

namespace TLGateway {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::string SignedBody(TestGateway& gateway, const std::string& method, const std::string& business,
                       const std::string& token)
{
    FormParameters parameters = gateway.Envelope(method, business, token);
    parameters["sign"] = Sign(parameters, "secret");
    return FormEncode(parameters);
}

HttpServer::Options ShortLimits()
{
    HttpServer::Options options;
    options.requestLimit = std::chrono::milliseconds(150);
    options.idleLimit = std::chrono::milliseconds(150);
    return options;
}

std::string Get(const std::string& target, const std::string& method = "GET")
{
    return method + " " + target + " HTTP/1.1\r\nHost: localhost\r\n\r\n";
}

} // namespace

TEST(HttpServerTest, AnswersASignedRequestAsJsonInUtf8)
{
    RunningServer server;
    HttpClient client(server.Port());
    const std::string token = server.gateway.TokenOf("anna");
    client.Write(HttpClient::Post(
        SignedBody(server.gateway, "dsm.tl.pc.auto.run.get", TestGateway::Param("anna"), token)));
    const auto reply = client.Read();
    EXPECT_EQ(reply.status, 200);
    EXPECT_THAT(reply.header, HasSubstr("Content-Type: application/json; charset=utf-8\r\n"));
    EXPECT_THAT(reply.body, AllOf(StartsWith(R"({"code":"0","message":"","requestId":")"),
                                  HasSubstr(R"("data":{"customItems":[])")));
}

TEST(HttpServerTest, RefusalHasTheStatusOfItsCode)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write(HttpClient::Post(SignedBody(server.gateway, "nope", "{}", "")));
    const auto reply = client.Read();
    EXPECT_EQ(reply.status, 404);
    EXPECT_THAT(reply.body, StartsWith(R"({"code":"1007",)"));
}

TEST(HttpServerTest, KeepsTheConnectionForTheNextRequest)
{
    RunningServer server;
    HttpClient client(server.Port());
    for (int i = 0; i < 3; ++i) {
        client.Write(HttpClient::Post("x"));
        EXPECT_EQ(client.Read().status, 400);
    }
}

TEST(HttpServerTest, ClosesWhenTheClientAsksForIt)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write(HttpClient::Post("x", "Connection: close\r\n"));
    EXPECT_THAT(client.ReadToEnd(), AllOf(StartsWith("HTTP/1.1 400"), HasSubstr("Connection: close")));
}

TEST(HttpServerTest, RequestsSentAheadAreAnsweredInTheirOrder)
{
    RunningServer server;
    HttpClient client(server.Port());
    const std::string token = server.gateway.TokenOf("anna");
    std::string bytes;
    for (int i = 0; i < 10; ++i) {
        AutoRunConfiguration configuration;
        configuration.customItems = {CustomEntry("c", "Name " + std::to_string(i))};
        bytes += HttpClient::Post(SignedBody(server.gateway, "dsm.tl.pc.auto.run.set",
                                             TestGateway::SetRequest("anna", configuration), token));
        bytes += HttpClient::Post(
            SignedBody(server.gateway, "dsm.tl.pc.auto.run.get", TestGateway::Param("anna"), token));
        bytes += Get("/health");
    }
    client.Write(bytes);
    for (int i = 0; i < 10; ++i) {
        EXPECT_THAT(client.Read().body, HasSubstr("\"data\":true"));
        EXPECT_THAT(client.Read().body, HasSubstr("\"Name " + std::to_string(i) + "\""));
        EXPECT_EQ(client.Read().body, R"({"status":"ok"})");
    }
}

TEST(HttpServerTest, BodyOverTheLimitIs413AsJson)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write(HttpClient::Post(std::string(256 * 1024 + 1, 'x')));
    const auto reply = client.Read();
    EXPECT_EQ(reply.status, 413);
    EXPECT_THAT(reply.body, AllOf(HasSubstr("\"code\":\"1011\""), HasSubstr("262144 bytes")));
    EXPECT_THAT(client.ReadToEnd(), "");
}

TEST(HttpServerTest, ChunkedBodyOverTheLimitIs413)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write("POST /gateway HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\n");
    const std::string chunk = "8000\r\n" + std::string(0x8000, 'x') + "\r\n";
    for (int i = 0; i < 9; ++i) {
        client.Write(chunk);
    }
    EXPECT_EQ(client.Read().status, 413);
}

TEST(HttpServerTest, BodyAtTheLimitIsRead)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write(HttpClient::Post(std::string(256 * 1024, 'x')));
    EXPECT_THAT(client.Read().body, HasSubstr("\"code\":\"1001\""));
}

TEST(HttpServerTest, ClientThatWaitsForContinueGetsIt)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write("POST /gateway HTTP/1.1\r\nHost: x\r\nExpect: 100-continue\r\nContent-Length: 1\r\n\r\n");
    EXPECT_EQ(client.Read().status, 100);
    client.Write("x");
    EXPECT_EQ(client.Read().status, 400);
}

TEST(HttpServerTest, OtherMethodOnTheGatewaysAddressIs405WithItsCode)
{
    RunningServer server;
    HttpClient client(server.Port());
    for (const char* method : {"GET", "PUT", "DELETE", "PATCH", "OPTIONS"}) {
        client.Write(Get("/gateway", method));
        const auto reply = client.Read();
        EXPECT_EQ(reply.status, 405) << method;
        EXPECT_THAT(reply.header, HasSubstr("Allow: POST\r\n"));
        EXPECT_THAT(reply.body, StartsWith(R"({"code":"1012",)"));
    }
}

TEST(HttpServerTest, OtherAddressIs404WithItsCode)
{
    RunningServer server;
    HttpClient client(server.Port());
    for (const char* target :
         {"/", "/gateway/", "/demo/", "/demo/../gateway", "/demo/nothing", "/favicon.ico"}) {
        client.Write(Get(target));
        const auto reply = client.Read();
        EXPECT_EQ(reply.status, 404) << target;
        EXPECT_THAT(reply.body, StartsWith(R"({"code":"1012",)"));
    }
}

TEST(HttpServerTest, HeadHasTheLengthButNoBody)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write(Get("/health", "HEAD") + Get("/nothing", "HEAD") + Get("/health"));
    const auto health = client.Read(true);
    EXPECT_EQ(health.status, 200);
    EXPECT_THAT(health.header, HasSubstr("Content-Length: 15\r\n"));
    EXPECT_EQ(client.Read(true).status, 404);
    EXPECT_EQ(client.Read().body, R"({"status":"ok"})");
}

TEST(HttpServerTest, HealthTakesNoPost)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write("POST /health HTTP/1.1\r\nHost: x\r\nContent-Length: 0\r\n\r\n");
    EXPECT_EQ(client.Read().status, 405);
}

TEST(HttpServerTest, DemoPageAndItsIcon)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write(Get("/demo/orders?from=test") + Get("/demo/icons/orders.svg"));
    const auto page = client.Read();
    EXPECT_EQ(page.status, 200);
    EXPECT_THAT(page.header, HasSubstr("Content-Type: text/html; charset=utf-8\r\n"));
    EXPECT_THAT(page.body, HasSubstr("/demo/icons/orders.svg"));
    EXPECT_THAT(client.Read().header, HasSubstr("Content-Type: image/svg+xml\r\n"));
}

TEST(HttpServerTest, WhatIsNotHttpIs400AndTheEndOfTheConnection)
{
    RunningServer server;
    for (const std::string bytes : {"\x16\x03\x01\x02", "GET / HTTP/9.9\r\n\r\n", "nonsense\r\n\r\n"}) {
        HttpClient client(server.Port());
        client.Write(bytes + std::string("\r\n\r\n"));
        EXPECT_THAT(client.ReadToEnd(), AllOf(StartsWith("HTTP/1.1 400"), HasSubstr(R"({"code":"1001",)")));
    }
}

TEST(HttpServerTest, EndlessHeaderIsRefused)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write("GET / HTTP/1.1\r\nX: " + std::string(20 * 1024, 'x'));
    EXPECT_THAT(client.ReadToEnd(), StartsWith("HTTP/1.1 400"));
}

TEST(HttpServerTest, SlowClientIsClosedInTheHeader)
{
    RunningServer server(ShortLimits());
    HttpClient client(server.Port());
    client.Write("POST /gateway HTTP/1.1\r\nHost: ");
    EXPECT_EQ(client.ReadToEnd(), "");
}

TEST(HttpServerTest, SlowClientIsClosedInTheBody)
{
    RunningServer server(ShortLimits());
    HttpClient client(server.Port());
    client.Write("POST /gateway HTTP/1.1\r\nHost: x\r\nContent-Length: 10\r\n\r\nabc");
    EXPECT_EQ(client.ReadToEnd(), "");
}

TEST(HttpServerTest, ClientThatSendsNothingIsClosed)
{
    RunningServer server(ShortLimits());
    HttpClient client(server.Port());
    EXPECT_EQ(client.ReadToEnd(), "");
}

TEST(HttpServerTest, IdleConnectionIsClosed)
{
    HttpServer::Options options;
    options.idleLimit = std::chrono::milliseconds(150); // the request itself has all the time
    RunningServer server(options);
    HttpClient client(server.Port());
    client.Write(Get("/health"));
    EXPECT_EQ(client.Read().status, 200);
    EXPECT_EQ(client.ReadToEnd(), "");
}

TEST(HttpServerTest, ConnectionBeyondTheLimitIsTurnedAwayAndPlacesAreFreedAgain)
{
    HttpServer::Options options;
    options.maxConnections = 2;
    RunningServer server(options);
    HttpClient first(server.Port());
    {
        HttpClient second(server.Port());
        first.Write(Get("/health"));
        second.Write(Get("/health"));
        EXPECT_EQ(first.Read().status, 200);
        EXPECT_EQ(second.Read().status, 200);
        HttpClient third(server.Port());
        EXPECT_THAT(third.ReadToEnd(), AllOf(StartsWith("HTTP/1.1 503"), HasSubstr(R"("code":"5001")")));
    }
    first.Write("GET /health HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n");
    EXPECT_THAT(first.ReadToEnd(), StartsWith("HTTP/1.1 200"));
    // Both have gone, but the server may hear of the second one's end a moment later.
    for (;;) {
        HttpClient later(server.Port());
        later.Write("GET /health HTTP/1.1\r\nHost: x\r\nConnection: close\r\n\r\n");
        if (later.ReadToEnd().rfind("HTTP/1.1 200", 0) == 0) {
            break;
        }
    }
}

TEST(HttpServerTest, FullQueueOfTheWorkersIs5001)
{
    RunningServer server({}, 0);
    HttpClient client(server.Port());
    client.Write(HttpClient::Post("x"));
    const auto reply = client.Read();
    EXPECT_EQ(reply.status, 503);
    EXPECT_THAT(reply.body, StartsWith(R"({"code":"5001",)"));
}

TEST(HttpServerTest, StopClosesIdleConnectionsAndEnds)
{
    RunningServer server;
    HttpClient client(server.Port());
    client.Write(Get("/health"));
    EXPECT_EQ(client.Read().status, 200);
    server.Stop();
    EXPECT_EQ(client.ReadToEnd(), "");
    server.Join();
    EXPECT_THROW(HttpClient(server.Port()), std::exception);
}

TEST(HttpServerTest, StopAnswersTheRequestThatIsInWork)
{
    RunningServer server;
    const std::string token = server.gateway.TokenOf("anna");
    std::promise<void> isBlocked;
    std::promise<void> release;
    server.gateway.Store().EditConfiguration(
        "anna", "operator",
        [&, released = release.get_future().share()](const AutoRunConfiguration& stored) {
            isBlocked.set_value();
            released.wait();
            return stored;
        },
        [](const std::optional<WriteFailure>&) {});
    isBlocked.get_future().wait();

    HttpClient client(server.Port());
    client.Write(HttpClient::Post(SignedBody(server.gateway, "dsm.tl.pc.auto.run.set",
                                             TestGateway::SetRequest("anna", SampleConfiguration()), token)));
    while (server.gateway.Counts().writes < 2) { // the log-in's token and this request's write
        std::this_thread::yield();
    }
    server.Stop();
    release.set_value();
    EXPECT_THAT(client.ReadToEnd(), AllOf(StartsWith("HTTP/1.1 200"), HasSubstr("Connection: close"),
                                          HasSubstr("\"data\":true")));
    server.Join();
}

TEST(HttpServerTest, StopDoesNotWaitForeverForARequestThatNeverEnds)
{
    HttpServer::Options options;
    options.stopLimit = std::chrono::milliseconds(100);
    RunningServer server(options);
    HttpClient client(server.Port());
    client.Write(Get("/health") + "POST /gateway HTTP/1.1\r\nHost: ");
    EXPECT_EQ(client.Read().status, 200);
    server.Stop();
    EXPECT_EQ(client.ReadToEnd(), "");
    server.Join();
}

TEST(HttpServerTest, PortThatIsTakenIsAnError)
{
    RunningServer server;
    HttpServer::Options options;
    options.port = server.Port();
    TestGateway gateway;
    WorkerPool workers(1, 1);
    HttpRouter router(gateway.Service(), workers, nullptr);
    try {
        HttpServer second(options, router, gateway.Capture().Logger());
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_THAT(error.what(), HasSubstr("127.0.0.1:" + std::to_string(server.Port())));
    }
}

TEST(HttpServerTest, ManyConnectionsAtOnceAreAllServed)
{
    RunningServer server;
    std::vector<std::future<int>> statuses;
    for (int i = 0; i < 16; ++i) {
        statuses.push_back(std::async(std::launch::async, [&] {
            HttpClient client(server.Port());
            int good = 0;
            for (int n = 0; n < 20; ++n) {
                client.Write(Get("/health") + HttpClient::Post("x"));
                good += client.Read().status == 200 ? 1 : 0;
                good += client.Read().status == 400 ? 1 : 0;
            }
            return good;
        }));
    }
    for (auto& status : statuses) {
        EXPECT_EQ(status.get(), 40);
    }
}

} // namespace TLGateway
