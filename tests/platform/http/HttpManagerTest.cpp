#include "FakeRequest.h"
#include "FakeResponse.h"
#include "ScriptedHttpServer.h"
#include "WaitUntil.h"

#include "base/Provided.h"
#include "http/HttpError.h"
#include "http/HttpManager.h"
#include "http/HttpReplyCache.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtNetwork/QNetworkProxy>
#include <QtNetwork/QNetworkReply>
#include <QtNetwork/QTcpServer>
#include <QtNetwork/QTcpSocket>

#include <gtest/gtest.h>

#include <memory>

namespace {

const char* const NoWholeAnswer = "The gateway closed the connection without a complete reply.";
const QByteArray Success = R"({"code":"0","value":"fresh"})";

std::string Text(const QString& text)
{
    return text.toStdString();
}

QString CodeOf(HttpError error)
{
    return QString::number(static_cast<int>(error));
}

} // namespace

class HttpManagerTest : public ::testing::Test
{
protected:
    HttpManagerTest()
        : manager(std::make_unique<HttpManager>(
              std::make_unique<HttpReplyCache>(folder.filePath(QStringLiteral("replies")))))
    {
        Watch();
    }

    void Watch()
    {
        QObject::connect(manager.get(), &HttpManager::SigFinished, manager.get(),
                         [this](const HttpCallReport& finished) { report = finished; });
    }

    void MakeCall(bool autoCache = false)
    {
        request = QSharedPointer<FakeRequest>::create(server.GetUrl(QStringLiteral("/gateway")));
        response = QSharedPointer<FakeResponse>::create(autoCache);
    }

    void Send(int timeout = 0, int attempts = 1)
    {
        completions = 0;
        manager->Send(
            request, response, [this] { ++completions; }, timeout, attempts);
        EXPECT_EQ(completions, 0) << "completed inside Send";
    }

    void Run(int timeout = 0, int attempts = 1)
    {
        Send(timeout, attempts);
        ASSERT_TRUE(WaitUntil([this] { return completions > 0; }));
        EXPECT_EQ(completions, 1);
        EXPECT_EQ(report.ok, response->IsSuccess());
        EXPECT_EQ(Text(report.code), Text(response->GetErrorCode()));
        EXPECT_EQ(Text(report.description), Text(response->GetErrorDesc()));
    }

    // A whole call of another manager at another server, with pauses that outlast the first one of a call
    // that was sent before.
    void OutlastAPause()
    {
        ScriptedHttpServer elsewhere;
        elsewhere.SetStanding(ScriptedReply::Html("down", 502));
        HttpManager other(nullptr);
        bool done = false;
        other.Send(
            QSharedPointer<FakeRequest>::create(elsewhere.GetUrl(QStringLiteral("/gateway"))),
            QSharedPointer<FakeResponse>::create(), [&done] { done = true; }, 0, 3);
        ASSERT_TRUE(WaitUntil([&done] { return done; }));
        ASSERT_EQ(elsewhere.GetRequestCount(), 3);
    }

    // One call against one reply, tried once.
    void RunAgainst(const ScriptedReply& reply, bool autoCache = false)
    {
        MakeCall(autoCache);
        server.SetStanding(reply);
        Run();
    }

    // Leaves a reply of the current user in the cache.
    void Keep()
    {
        RunAgainst(ScriptedReply::Json(R"({"code":"0","value":"kept"})"), true);
        ASSERT_TRUE(response->IsSuccess());
    }

    void ExpectServed()
    {
        EXPECT_TRUE(response->IsSuccess());
        EXPECT_TRUE(response->IsFromCache());
        EXPECT_EQ(Text(response->value), "kept");
        EXPECT_TRUE(report.fromCache);
    }

    void ExpectFailed(const QString& code, const char* description)
    {
        EXPECT_FALSE(response->IsSuccess());
        EXPECT_FALSE(response->IsFromCache());
        EXPECT_EQ(Text(response->GetErrorCode()), Text(code));
        EXPECT_EQ(Text(response->GetErrorDesc()), description);
    }

    QTemporaryDir folder;
    ScriptedHttpServer server;
    std::unique_ptr<HttpManager> manager;
    QSharedPointer<FakeRequest> request;
    QSharedPointer<FakeResponse> response;
    HttpCallReport report;
    int completions = 0;
};

TEST_F(HttpManagerTest, PostsTheBodyAsAForm)
{
    RunAgainst(ScriptedReply::Json(Success));
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_EQ(Text(response->value), "fresh");
    EXPECT_EQ(Text(response->GetErrorCode()), "0");
    EXPECT_EQ(Text(response->GetErrorDesc()), "");
    EXPECT_FALSE(response->IsFromCache());
    EXPECT_EQ(report.method, "test.method");
    EXPECT_EQ(report.attempts, 1);

    ASSERT_EQ(server.GetRequestCount(), 1);
    const RecordedRequest sent = server.GetRequests().first();
    EXPECT_EQ(sent.method, "POST");
    EXPECT_EQ(sent.target, "/gateway");
    EXPECT_EQ(sent.body, "attempt=1");
    EXPECT_EQ(sent.headers.value("content-type"), "application/x-www-form-urlencoded");
    EXPECT_EQ(sent.headers.value("content-length"), "9");
    EXPECT_EQ(sent.headers.value("accept-encoding"), "identity");
    EXPECT_EQ(sent.headers.value("host"), "127.0.0.1:" + QByteArray::number(server.GetPort()));
    EXPECT_EQ(request->bodies, 1);
    EXPECT_EQ(request->resets, 1);
    EXPECT_EQ(response->resets, 1);
}

TEST_F(HttpManagerTest, ConnectsToTheGivenHostAndKeepsTheHostHeader)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Json(Success));
    request->url = QStringLiteral("http://gateway.example:%1/gateway").arg(server.GetPort());
    request->hostIp = QStringLiteral("127.0.0.1");
    Run();
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_EQ(server.GetRequests().first().headers.value("host"),
              "gateway.example:" + QByteArray::number(server.GetPort()));
}

TEST_F(HttpManagerTest, RefusesAHostToConnectToThatIsNone)
{
    MakeCall();
    request->hostIp = QStringLiteral("not an address");
    Run(0, 3);
    ExpectFailed(CodeOf(HttpError::InvalidAddress),
                 "The host that replaces the gateway's host is not a valid address.");
    EXPECT_EQ(server.GetRequestCount(), 0);
}

TEST_F(HttpManagerTest, TakesTheAnswerOfARefusalAndDoesNotRetry)
{
    for (const int status : {400, 401, 403, 404, 405, 413, 429}) {
        SCOPED_TRACE(status);
        const int before = server.GetRequestCount();
        MakeCall();
        server.SetStanding(ScriptedReply::Json(R"({"code":"2001","value":""})", status));
        Run(0, 3);
        ExpectFailed(QStringLiteral("2001"), "said no");
        EXPECT_EQ(server.GetRequestCount(), before + 1);
        EXPECT_EQ(report.attempts, 1);
    }
}

TEST_F(HttpManagerTest, RetriesWhenTheServerSaysThatItFailed)
{
    MakeCall();
    server.Enqueue(ScriptedReply::Json(R"({"code":"5001"})", 503));
    server.Enqueue(ScriptedReply::Json(Success));
    Run(0, 2);
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_EQ(report.attempts, 2);
    EXPECT_EQ(request->bodies, 2);
    EXPECT_EQ(request->resets, 2);
    EXPECT_EQ(response->resets, 2);
    ASSERT_EQ(server.GetRequestCount(), 2);
    EXPECT_EQ(server.GetRequests()[1].body, "attempt=2") << "the body of the first attempt was sent again";
}

TEST_F(HttpManagerTest, StopsAfterTheLastAttempt)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Json(R"({"code":"5002"})", 500));
    Run(0, 2);
    ExpectFailed(QStringLiteral("5002"), "said no");
    EXPECT_EQ(server.GetRequestCount(), 2);
}

TEST_F(HttpManagerTest, PausesLongerBeforeEachAttemptAndTriesFiveTimesAtTheMost)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Html("down", 502));
    Run(0, 99);
    ASSERT_EQ(server.GetRequestCount(), 5);
    for (int i = 1; i < 5; ++i) {
        const qint64 pause = server.GetRequests()[i].arrival - server.GetRequests()[i - 1].arrival;
        EXPECT_GE(pause, (200 << (i - 1)) * 8 / 10 - 1) << "before attempt " << i + 1;
    }
}

TEST_F(HttpManagerTest, TriesOnceWhenAskedForNoAttempt)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Html("down", 502));
    Run(0, 0);
    EXPECT_EQ(server.GetRequestCount(), 1);
}

TEST_F(HttpManagerTest, NamesTheStatusOfAnErrorThatIsNoJson)
{
    RunAgainst(ScriptedReply::Html("<html>bad gateway</html>", 502));
    ExpectFailed(QString::number(QNetworkReply::UnknownServerError),
                 "The gateway failed with HTTP status 502.");
    RunAgainst(ScriptedReply::Html("", 500));
    ExpectFailed(QString::number(QNetworkReply::InternalServerError),
                 "The gateway failed with HTTP status 500.");
    RunAgainst(ScriptedReply::Html("<html>who are you</html>", 403));
    ExpectFailed(QString::number(QNetworkReply::ContentAccessDenied),
                 "The gateway refused the call with HTTP status 403.");
}

TEST_F(HttpManagerTest, AskedForAPasswordItReportsTheStatus)
{
    RunAgainst(ScriptedReply::Html("<html>log in</html>", 401).With("WWW-Authenticate", "Basic realm=\"x\""));
    ExpectFailed(QString::number(QNetworkReply::AuthenticationRequiredError),
                 "The gateway refused the call with HTTP status 401.");
}

TEST_F(HttpManagerTest, DoesNotBelieveASuccessThatCameWithAnErrorStatus)
{
    RunAgainst(ScriptedReply::Json(Success, 500));
    ExpectFailed(QString::number(QNetworkReply::InternalServerError),
                 "The gateway failed with HTTP status 500.");
}

TEST_F(HttpManagerTest, SaysThatAnAnswerIsNoJson)
{
    for (const QByteArray body :
         {"<html>hello</html>", "{\"code\":\"0\"", "\xff\xfe garbage", "{} {}", "1,2"}) {
        SCOPED_TRACE(body.toStdString());
        RunAgainst(ScriptedReply::Html(body));
        ExpectFailed(QStringLiteral("parse"), "The gateway's reply is not JSON.");
        EXPECT_TRUE(response->ShouldRetry());
    }
}

TEST_F(HttpManagerTest, TakesASingleValueForJson)
{
    for (const QByteArray body : {"true", "17", "\"text\"", "null", "[1,2]"}) {
        SCOPED_TRACE(body.toStdString());
        RunAgainst(ScriptedReply::Html(body));
        ExpectFailed(QStringLiteral("parse"), "no code");
    }
}

TEST_F(HttpManagerTest, SaysThatAnAnswerIsEmpty)
{
    RunAgainst(ScriptedReply::Html(" \n"));
    ExpectFailed(QStringLiteral("parse"), "The gateway's reply is empty.");
    RunAgainst(ScriptedReply::Html(QByteArray(), 204));
    ExpectFailed(QStringLiteral("parse"), "The gateway's reply is empty.");
}

TEST_F(HttpManagerTest, GarbageIsNoAnswer)
{
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::Raw, "SSH-2.0-OpenSSH_9.2\r\nmore of that\r\n\r\n"));
    ExpectFailed(QString::number(QNetworkReply::RemoteHostClosedError), NoWholeAnswer);
}

TEST_F(HttpManagerTest, HalfAnAnswerIsNone)
{
    // Half of it would do as JSON.
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::Cut, Success + QByteArray(Success.size(), ' ')));
    ExpectFailed(QString::number(QNetworkReply::RemoteHostClosedError), NoWholeAnswer);
}

TEST_F(HttpManagerTest, HalfAChunkedAnswerIsNone)
{
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::Raw,
                                 "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n" +
                                     QByteArray::number(Success.size(), 16) + "\r\n" + Success + "\r\n"));
    ExpectFailed(QString::number(QNetworkReply::RemoteHostClosedError), NoWholeAnswer);
}

TEST_F(HttpManagerTest, HalfAHeadIsNone)
{
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::Raw, "HTTP/1.1 200 OK\r\nContent-Le"));
    ExpectFailed(QString::number(QNetworkReply::RemoteHostClosedError), NoWholeAnswer);
}

TEST_F(HttpManagerTest, AClosedConnectionCountsAsOneAttempt)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Close));
    Run(0, 2);
    EXPECT_FALSE(response->IsSuccess());
    EXPECT_EQ(Text(response->GetErrorDesc()), NoWholeAnswer);
    EXPECT_EQ(server.GetRequestCount(), 2);
    EXPECT_EQ(request->bodies, 2);
}

TEST_F(HttpManagerTest, ReusesTheConnectionAndSurvivesItsEnd)
{
    RunAgainst(ScriptedReply::Json(Success));
    RunAgainst(ScriptedReply::Json(Success));
    EXPECT_EQ(server.GetConnectionCount(), 1);
    // Closed while nobody was looking.
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::NoLength, Success));
    ASSERT_TRUE(WaitUntil([this] { return server.GetOpenCount() == 0; }));
    RunAgainst(ScriptedReply::Json(Success));
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_EQ(server.GetConnectionCount(), 2);
}

TEST_F(HttpManagerTest, NobodyListens)
{
    MakeCall();
    auto gone = std::make_unique<ScriptedHttpServer>();
    request->url = gone->GetUrl(QStringLiteral("/gateway")).toString();
    gone.reset();
    Run(0, 2);
    ExpectFailed(QString::number(QNetworkReply::ConnectionRefusedError),
                 "The gateway cannot be reached: connection refused.");
    EXPECT_EQ(report.attempts, 2);
}

TEST_F(HttpManagerTest, PlainHttpWhereTlsWasExpected)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Never));
    request->url = QStringLiteral("https://127.0.0.1:%1/gateway").arg(server.GetPort());
    // The scripted server never understands a TLS greeting, so this one answers for it.
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    QObject::connect(&plain, &QTcpServer::newConnection, &plain, [&plain] {
        QTcpSocket* const socket = plain.nextPendingConnection();
        socket->write("HTTP/1.1 400 Bad Request\r\n\r\n");
        socket->disconnectFromHost();
    });
    request->url = QStringLiteral("https://127.0.0.1:%1/gateway").arg(plain.serverPort());
    Run();
    EXPECT_FALSE(response->IsSuccess());
    EXPECT_EQ(Text(response->GetErrorCode()), std::to_string(QNetworkReply::SslHandshakeFailedError));
    EXPECT_TRUE(response->GetErrorDesc().startsWith(
        QStringLiteral("The gateway cannot be reached: no secure connection (")));
}

TEST_F(HttpManagerTest, DoesNotFollowARedirect)
{
    for (const int status : {301, 302, 303, 307, 308}) {
        SCOPED_TRACE(status);
        const ScriptedReply reply =
            ScriptedReply::Html("", status)
                .With("Location", server.GetUrl(QStringLiteral("/elsewhere")).toEncoded());
        const int before = server.GetRequestCount();
        RunAgainst(reply);
        ExpectFailed(CodeOf(HttpError::Redirect),
                     qPrintable(QStringLiteral("The gateway redirects to another address (HTTP status %1). "
                                               "The client does not follow redirects.")
                                    .arg(status)));
        EXPECT_EQ(server.GetRequestCount(), before + 1);
    }
}

TEST_F(HttpManagerTest, SendsNoCookiesBack)
{
    const ScriptedReply reply = ScriptedReply::Json(Success).With("Set-Cookie", "session=1; Path=/");
    RunAgainst(reply);
    RunAgainst(reply);
    ASSERT_EQ(server.GetRequestCount(), 2);
    EXPECT_FALSE(server.GetRequests()[1].headers.contains("cookie"));
}

TEST_F(HttpManagerTest, GoesPastTheProxyOnThisMachine)
{
    quint16 deadPort = 0;
    {
        const ScriptedHttpServer gone;
        deadPort = gone.GetPort();
    }
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), deadPort));
    RunAgainst(ScriptedReply::Json(Success));
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::NoProxy));
    EXPECT_TRUE(response->IsSuccess()) << Text(response->GetErrorDesc());
}

TEST_F(HttpManagerTest, SaysThatTheProxyFailed)
{
    MakeCall();
    quint16 deadPort = 0;
    {
        const ScriptedHttpServer gone;
        deadPort = gone.GetPort();
    }
    QNetworkProxy::setApplicationProxy(
        QNetworkProxy(QNetworkProxy::HttpProxy, QStringLiteral("127.0.0.1"), deadPort));
    request->url = QStringLiteral("https://gateway.example/gateway");
    Run();
    QNetworkProxy::setApplicationProxy(QNetworkProxy(QNetworkProxy::NoProxy));
    EXPECT_FALSE(response->IsSuccess());
    EXPECT_EQ(Text(response->GetErrorDesc()), "The gateway cannot be reached: Proxy connection refused.");
}

TEST_F(HttpManagerTest, TakesAnAnswerOfExactlyFourMebibytes)
{
    const QByteArray head = R"({"code":"0","value":")";
    const QByteArray body = head + QByteArray(4 * 1024 * 1024 - head.size() - 2, 'x') + "\"}";
    ASSERT_EQ(body.size(), 4 * 1024 * 1024);
    RunAgainst(ScriptedReply::Json(body));
    EXPECT_TRUE(response->IsSuccess()) << Text(response->GetErrorDesc());
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::NoLength, body));
    EXPECT_TRUE(response->IsSuccess()) << Text(response->GetErrorDesc());
    RunAgainst(ScriptedReply::Json(body + ' '));
    ExpectFailed(CodeOf(HttpError::TooLarge), "The gateway's reply is larger than 4 MiB.");
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::NoLength, body + ' '));
    ExpectFailed(CodeOf(HttpError::TooLarge), "The gateway's reply is larger than 4 MiB.");
}

TEST_F(HttpManagerTest, StopsADownloadThatIsTooLarge)
{
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::Endless));
    ExpectFailed(CodeOf(HttpError::TooLarge), "The gateway's reply is larger than 4 MiB.");
    ASSERT_TRUE(WaitUntil([this] { return server.GetOpenCount() == 0; }));
    EXPECT_LT(server.GetBytesSent(), 32 * 1024 * 1024);
}

TEST_F(HttpManagerTest, DoesNotWaitForABodyThatIsAnnouncedAsTooLarge)
{
    RunAgainst(ScriptedReply::Of(ScriptedReply::Kind::Raw,
                                 "HTTP/1.1 200 OK\r\nContent-Length: 5000000000\r\n\r\n{"));
    ExpectFailed(CodeOf(HttpError::TooLarge), "The gateway's reply is larger than 4 MiB.");
}

TEST_F(HttpManagerTest, RefusesWhatIsNoWebAddress)
{
    for (const char* const address : {"ftp://127.0.0.1/gateway", "file:///etc/hostname", "gateway", "http://",
                                      "http:///gateway", "http://a b/", "javascript:alert(1)"}) {
        SCOPED_TRACE(address);
        MakeCall(true);
        request->url = QString::fromLatin1(address);
        Run(0, 3);
        ExpectFailed(CodeOf(HttpError::InvalidAddress), "The gateway's address is not a web address.");
        EXPECT_EQ(report.attempts, 1);
    }
    MakeCall();
    request->url.clear();
    Run(0, 3);
    ExpectFailed(CodeOf(HttpError::InvalidAddress), "No gateway address is configured.");
}

TEST_F(HttpManagerTest, ASwitchedOffServiceIsNotAsked)
{
    Keep();
    const int before = server.GetRequestCount();
    MakeCall(true);
    request->switchedOff = true;
    Run(0, 3);
    ExpectFailed(CodeOf(HttpError::SwitchedOff), "Closed for the night.");
    EXPECT_EQ(server.GetRequestCount(), before);
    EXPECT_EQ(request->bodies, 0);
}

TEST_F(HttpManagerTest, GivesUpWhenTheTimeIsOver)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Never));
    Run(2500, 5);
    ExpectFailed(CodeOf(HttpError::Timeout), "The gateway did not answer within 2.5 seconds.");
    EXPECT_EQ(server.GetRequestCount(), 1);
    EXPECT_GE(report.milliseconds, 2499);
    ASSERT_TRUE(WaitUntil([this] { return server.GetOpenCount() == 0; })) << "still connected";
}

TEST_F(HttpManagerTest, TheTimeCountsForAllAttemptsAndPauses)
{
    constexpr int time = 5000;   // [ms]
    constexpr int answer = 2500; // after which the first attempt fails [ms]
    MakeCall();
    server.Enqueue(ScriptedReply::Html("down", 502).Held());
    server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Never));
    // Done when a second attempt with a time of its own would not be. Timers come in their order, however
    // late they are.
    bool late = false;
    QTimer::singleShot(time + answer - 100, Qt::PreciseTimer, &server, [&late] { late = true; });
    QTimer::singleShot(answer, Qt::PreciseTimer, &server, [this] { server.Release(); });
    Run(time, 2);
    EXPECT_FALSE(late) << "the second attempt had a time of its own";
    ExpectFailed(CodeOf(HttpError::Timeout), "The gateway did not answer within 5 seconds.");
    EXPECT_EQ(server.GetRequestCount(), 2);
    EXPECT_EQ(report.attempts, 2);
    EXPECT_GE(report.milliseconds, time - 1);
}

TEST_F(HttpManagerTest, DoesNotPauseWhenNoTimeIsLeftForAnotherAttempt)
{
    // By the fourth attempt at least 1120 ms are over, and its pause takes 1280 ms at least. A machine that
    // is busy gets less far.
    MakeCall();
    server.SetStanding(ScriptedReply::Html("down", 502));
    Run(2350, 5);
    ExpectFailed(QString::number(QNetworkReply::UnknownServerError),
                 "The gateway failed with HTTP status 502.");
    EXPECT_GE(server.GetRequestCount(), 1);
    EXPECT_LE(server.GetRequestCount(), 4);
}

TEST_F(HttpManagerTest, ManyCallsAtOnceAllComplete)
{
    server.SetStanding(ScriptedReply::Json(Success));
    QVector<int> finished(50, 0);
    QVector<QSharedPointer<FakeResponse>> responses;
    for (int& count : finished) {
        MakeCall();
        responses.append(response);
        manager->Send(
            request, response, [&count] { ++count; }, 0, 1);
    }
    ASSERT_TRUE(WaitUntil([&] { return !finished.contains(0); }));
    EXPECT_EQ(finished, QVector<int>(50, 1));
    for (const auto& one : responses) {
        EXPECT_TRUE(one->IsSuccess());
    }
}

TEST_F(HttpManagerTest, LetsGoOfRequestAndResponseAfterTheCompletion)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Json(Success));
    const QWeakPointer<FakeRequest> weakRequest = request;
    const QWeakPointer<FakeResponse> weakResponse = response;
    bool seen = false;
    manager->Send(
        request, response,
        [&] {
            EXPECT_TRUE(weakRequest.lock());
            EXPECT_TRUE(weakResponse.lock()->IsSuccess());
            seen = true;
        },
        0, 1);
    request.reset();
    response.reset();
    ASSERT_TRUE(WaitUntil([&] { return seen; }));
    EXPECT_TRUE(weakRequest.isNull());
    EXPECT_TRUE(weakResponse.isNull());
}

TEST_F(HttpManagerTest, ACompletionMaySendAgain)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Json(Success));
    const auto second = QSharedPointer<FakeResponse>::create();
    bool done = false;
    manager->Send(
        request, response,
        [&] {
            manager->Send(
                request, second, [&] { done = true; }, 0, 1);
        },
        0, 1);
    ASSERT_TRUE(WaitUntil([&] { return done; }));
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_TRUE(second->IsSuccess());
}

TEST_F(HttpManagerTest, ACompletionMayDeleteTheManagerWithOtherCallsInFlight)
{
    const auto otherRequest = QSharedPointer<FakeRequest>::create(server.GetUrl());
    const auto otherResponse = QSharedPointer<FakeResponse>::create();
    bool otherDone = false;
    server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Never));
    manager->Send(
        otherRequest, otherResponse, [&] { otherDone = true; }, 0, 1);
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 1; }));

    MakeCall();
    server.SetStanding(ScriptedReply::Json(Success));
    completions = 0;
    manager->Send(
        request, response,
        [this] {
            ++completions;
            manager.reset();
        },
        0, 1);
    ASSERT_TRUE(WaitUntil([this] { return !manager; }));
    EXPECT_EQ(completions, 1);
    ASSERT_TRUE(WaitUntil([this] { return server.GetOpenCount() == 0; }));
    EXPECT_FALSE(otherDone);
    EXPECT_EQ(Text(otherResponse->GetErrorCode()), "");
}

TEST_F(HttpManagerTest, DeletedWhenACallIsReportedItDoesNotComplete)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Json(Success));
    QObject::connect(manager.get(), &HttpManager::SigFinished, &server, [this] { manager.reset(); });
    Send();
    ASSERT_TRUE(WaitUntil([this] { return !manager; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(completions, 0);
}

TEST_F(HttpManagerTest, DeletedRightAfterSendItAsksNobody)
{
    MakeCall();
    Send();
    const QWeakPointer<FakeRequest> weak = request;
    request.reset();
    manager.reset();
    EXPECT_TRUE(weak.isNull());
    OutlastAPause();
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(server.GetConnectionCount(), 0);
}

TEST_F(HttpManagerTest, DeletedDuringATransferItHangsUp)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Json(Success).Held());
    Send();
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 1; }));
    const QWeakPointer<FakeResponse> weak = response;
    response.reset();
    manager.reset();
    EXPECT_TRUE(weak.isNull());
    ASSERT_TRUE(WaitUntil([this] { return server.GetOpenCount() == 0; }));
    EXPECT_EQ(completions, 0);
}

TEST_F(HttpManagerTest, DeletedDuringAPauseItDoesNotTryAgain)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Html("down", 502));
    Send(0, 2);
    ASSERT_TRUE(WaitUntil([this] { return !response->GetErrorCode().isEmpty(); }));
    manager.reset();
    OutlastAPause();
    EXPECT_EQ(completions, 0);
    EXPECT_EQ(server.GetRequestCount(), 1);
}

TEST_F(HttpManagerTest, AnEmptyCompletionIsFine)
{
    MakeCall();
    server.SetStanding(ScriptedReply::Json(Success));
    manager->Send(request, response, {}, 0, 1);
    ASSERT_TRUE(WaitUntil([this] { return report.ok; }));
}

TEST_F(HttpManagerTest, TheLogLineIsTheMethodNameUnlessTheRequestSaysMore)
{
    MakeCall();
    EXPECT_EQ(Text(request->GetLogInfo()), "test.method");
    EXPECT_EQ(Text(request->GetIdentity()), "");
    request->SetIdentity(QStringLiteral("page"));
    EXPECT_EQ(Text(request->GetIdentity()), "page");
}

TEST_F(HttpManagerTest, AKeptReplyServesForEveryFailureThatIsNotTheUsers)
{
    Keep();
    const ScriptedReply failures[] = {
        ScriptedReply::Json(R"({"code":"5001"})", 503),
        ScriptedReply::Json(R"({"code":"5000"})"),
        ScriptedReply::Html("<html>bad gateway</html>", 502),
        ScriptedReply::Html("<html>captive portal</html>"),
        ScriptedReply::Json(R"({"no":"code"})"),
        ScriptedReply::Of(ScriptedReply::Kind::Cut, Success),
        ScriptedReply::Of(ScriptedReply::Kind::Close),
        ScriptedReply::Of(ScriptedReply::Kind::Endless),
        ScriptedReply::Html("", 302),
    };
    for (const ScriptedReply& failure : failures) {
        SCOPED_TRACE(failure.status);
        SCOPED_TRACE(failure.body.toStdString());
        RunAgainst(failure, true);
        ExpectServed();
        EXPECT_FALSE(report.failure.isEmpty());
        EXPECT_FALSE(report.failureCode.isEmpty());
    }
}

TEST_F(HttpManagerTest, AKeptReplyServesAfterTheTimeIsOver)
{
    Keep();
    MakeCall(true);
    server.SetStanding(ScriptedReply::Of(ScriptedReply::Kind::Never));
    Run(200, 2);
    ExpectServed();
    EXPECT_EQ(Text(report.failureCode), Text(CodeOf(HttpError::Timeout)));
    EXPECT_EQ(Text(report.failure), "The gateway did not answer within 0.2 seconds.");
}

TEST_F(HttpManagerTest, AKeptReplyServesOnlyAfterTheLastAttempt)
{
    Keep();
    MakeCall(true);
    server.Enqueue(ScriptedReply::Html("down", 502));
    server.SetStanding(ScriptedReply::Json(Success));
    Run(0, 2);
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_FALSE(response->IsFromCache());
    EXPECT_EQ(Text(response->value), "fresh");
    EXPECT_FALSE(report.fromCache);
    EXPECT_EQ(Text(report.failure), "");
}

TEST_F(HttpManagerTest, AKeptReplyOutlivesTheManager)
{
    Keep();
    manager = std::make_unique<HttpManager>(
        std::make_unique<HttpReplyCache>(folder.filePath(QStringLiteral("replies"))));
    Watch();
    RunAgainst(ScriptedReply::Html("down", 502), true);
    ExpectServed();
}

TEST_F(HttpManagerTest, ARefusalIsNeverCoveredByAKeptReply)
{
    Keep();
    for (const char* const code : {"1004", "1006", "2002", "2003", "4999"}) {
        SCOPED_TRACE(code);
        RunAgainst(ScriptedReply::Json(QByteArray(R"({"code":")") + code + R"("})", 401), true);
        ExpectFailed(QString::fromLatin1(code), "said no");
    }
}

TEST_F(HttpManagerTest, ARefusalIsNotKept)
{
    Keep();
    RunAgainst(ScriptedReply::Json(R"({"code":"2003","value":"refused"})", 401), true);
    RunAgainst(ScriptedReply::Html("down", 502), true);
    ExpectServed();
}

TEST_F(HttpManagerTest, WithoutAutoCacheNothingIsKeptOrServed)
{
    RunAgainst(ScriptedReply::Json(Success));
    RunAgainst(ScriptedReply::Html("down", 502), true);
    EXPECT_FALSE(response->IsSuccess());
    Keep();
    RunAgainst(ScriptedReply::Html("down", 502), false);
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(HttpManagerTest, WithoutAKeyNothingIsKeptOrServed)
{
    MakeCall(true);
    request->cacheKey.clear();
    server.SetStanding(ScriptedReply::Json(Success));
    Run();
    MakeCall(true);
    request->cacheKey.clear();
    server.SetStanding(ScriptedReply::Html("down", 502));
    Run();
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(HttpManagerTest, AnotherUsersReplyNeverServes)
{
    Keep();
    MakeCall(true);
    request->cacheKey = QStringLiteral("user-b");
    server.SetStanding(ScriptedReply::Html("down", 502));
    Run();
    EXPECT_FALSE(response->IsSuccess());
    MakeCall(true);
    request->cacheParameter = QStringLiteral("other parameters");
    Run();
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(HttpManagerTest, NothingServesAfterTheCacheWasCleared)
{
    Keep();
    manager->ClearCache();
    RunAgainst(ScriptedReply::Html("down", 502), true);
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(HttpManagerTest, AReplyThatArrivesAfterTheCacheWasClearedIsNotKept)
{
    MakeCall(true);
    server.SetStanding(ScriptedReply::Json(Success).Held());
    Send();
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 1; }));
    manager->ClearCache();
    server.Release();
    ASSERT_TRUE(WaitUntil([this] { return completions == 1; }));
    EXPECT_TRUE(response->IsSuccess());
    RunAgainst(ScriptedReply::Html("down", 502), true);
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(HttpManagerTest, AReplyThatArrivesForTheUserBeforeIsNotKept)
{
    MakeCall(true);
    server.SetStanding(ScriptedReply::Json(Success).Held());
    Send();
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 1; }));
    request->cacheKey = QStringLiteral("user-b");
    server.Release();
    ASSERT_TRUE(WaitUntil([this] { return completions == 1; }));
    for (const char* const user : {"user-a", "user-b"}) {
        SCOPED_TRACE(user);
        MakeCall(true);
        request->cacheKey = QString::fromLatin1(user);
        server.SetStanding(ScriptedReply::Html("down", 502));
        Run();
        EXPECT_FALSE(response->IsSuccess());
    }
}

TEST_F(HttpManagerTest, AFailureOfTheUserBeforeIsNotCoveredByTheReplyOfTheOneNow)
{
    Keep(); // for user-a
    MakeCall(true);
    request->cacheKey = QStringLiteral("user-b");
    server.SetStanding(ScriptedReply::Html("down", 502).Held());
    Send();
    ASSERT_TRUE(WaitUntil([this] { return server.GetRequestCount() == 2; }));
    request->cacheKey = QStringLiteral("user-a");
    server.Release();
    ASSERT_TRUE(WaitUntil([this] { return completions == 1; }));
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(HttpManagerTest, AKeptReplyThatCannotBeReadLeavesTheFailureAsItWas)
{
    {
        HttpReplyCache cache(folder.filePath(QStringLiteral("replies")));
        ASSERT_TRUE(cache.Save(QStringLiteral("user-a\n"), "{\"code\":"));
    }
    RunAgainst(ScriptedReply::Html("down", 502), true);
    ExpectFailed(QString::number(QNetworkReply::UnknownServerError),
                 "The gateway failed with HTTP status 502.");
    EXPECT_FALSE(report.fromCache);
    EXPECT_EQ(Text(report.failure), "");
}

TEST_F(HttpManagerTest, OnlyTheWantedCodeIsKept)
{
    MakeCall(true);
    request->successParameter = QStringLiteral("200");
    server.SetStanding(ScriptedReply::Json(Success));
    Run();
    EXPECT_TRUE(response->IsSuccess());
    RunAgainst(ScriptedReply::Html("down", 502), true);
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(HttpManagerTest, WithoutACacheCallsWorkAllTheSame)
{
    manager = std::make_unique<HttpManager>(nullptr);
    Watch();
    Keep();
    manager->ClearCache();
    RunAgainst(ScriptedReply::Html("down", 502), true);
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(HttpManagerTest, DroppedCallsNeverCompleteAndWhatTheyHeldIsLetGo)
{
    MakeCall();
    auto held = QSharedPointer<int>::create(1);
    const QWeakPointer<int> watched = held;
    manager->Send(
        request, response, [this, held] { completions += *held; }, 0, 1);
    held.clear();
    ASSERT_FALSE(watched.isNull());
    manager->DropCalls();
    EXPECT_TRUE(watched.isNull());
    EXPECT_FALSE(manager->IsWriting());

    MakeCall();
    Run(); // the manager goes on to work
    EXPECT_EQ(completions, 1);
}

TEST_F(HttpManagerTest, IsWritingWhileAWriteIsInFlight)
{
    EXPECT_FALSE(manager->IsWriting());
    MakeCall(false);
    Send();
    EXPECT_TRUE(manager->IsWriting());
    ASSERT_TRUE(WaitUntil([this] { return completions > 0; }));
    EXPECT_FALSE(manager->IsWriting());
}

TEST_F(HttpManagerTest, IsNotWritingWhileAReadIsInFlight)
{
    MakeCall(true);
    Send();
    EXPECT_FALSE(manager->IsWriting());
}

TEST_F(HttpManagerTest, IsNotWritingWhileAReadOfNobodyIsInFlight)
{
    MakeCall(true);
    request->cacheKey.clear(); // nobody is signed in
    Send();
    EXPECT_FALSE(manager->IsWriting());
}

TEST_F(HttpManagerTest, WhileNoManagerIsProvidedEachCallFails)
{
    ASSERT_EQ(IHttpManager::Provided(), nullptr);
    ASSERT_NE(IHttpManager::Instance(), nullptr);
    MakeCall(true);
    completions = 0;
    IHttpManager::Instance()->Send(
        request, response, [this] { ++completions; }, 0, 3);
    EXPECT_EQ(completions, 0);
    ASSERT_TRUE(WaitUntil([this] { return completions > 0; }));
    EXPECT_EQ(completions, 1);
    ExpectFailed(CodeOf(HttpError::InvalidAddress), "The client is not connected to a gateway.");
    EXPECT_FALSE(response->ShouldRetry());
    EXPECT_EQ(server.GetConnectionCount(), 0);
}

TEST_F(HttpManagerTest, TheProvidedManagerIsTheOneInUse)
{
    {
        const Provided<IHttpManager> provided(manager.get());
        EXPECT_EQ(IHttpManager::Instance(), manager.get());
    }
    EXPECT_NE(IHttpManager::Instance(), manager.get());
}
