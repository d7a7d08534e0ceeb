#include "FakeDsmGateway.h"
#include "FakeDsmRequest.h"
#include "FakeRecord.h"
#include "ScriptedHttpServer.h"
#include "WaitUntil.h"

#include "base/Provided.h"
#include "core/TLGlobalData.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http/HttpManager.h"
#include "http/HttpReplyCache.h"

#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using RecordResponse = HttpResponseObjectDsm<FakeRecord>;

const QByteArray Kept = R"({"code":"0","message":"","requestId":"1","data":{"name":"kept","count":1}})";

} // namespace

// Gateway calls from the request object to the filled record, over the wire.
class DsmCallTest : public ::testing::Test
{
protected:
    DsmCallTest() : manager(std::make_unique<HttpReplyCache>(folder.path()))
    {
        gateway.config.address = server.GetUrl();
        TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    }
    ~DsmCallTest() override { TLGlobalData::Instance()->ClearUser(); }

    void Run(const ScriptedReply& reply, int attempts = 1)
    {
        server.SetStanding(reply);
        request = QSharedPointer<FakeDsmRequest>::create();
        response = QSharedPointer<RecordResponse>::create();
        response->SetAutoCache(true);
        bool done = false;
        manager.Send(
            request, response, [&done] { done = true; }, 0, attempts);
        ASSERT_TRUE(WaitUntil([&done] { return done; }));
    }

    QTemporaryDir folder;
    ScriptedHttpServer server;
    FakeDsmGateway gateway;
    Provided<IDsmGateway> provided{&gateway};
    HttpManager manager;
    QSharedPointer<FakeDsmRequest> request;
    QSharedPointer<RecordResponse> response;
};

TEST_F(DsmCallTest, SendsTheSignedEnvelopeToTheResource)
{
    Run(ScriptedReply::Json(Kept));
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_EQ(response->GetEntity()->m_name.toStdString(), "kept");
    ASSERT_EQ(server.GetRequestCount(), 1);
    EXPECT_EQ(server.GetRequests()[0].target, "/gateway");
    EXPECT_EQ(server.GetRequests()[0].body, request->GetApiBody());
}

TEST_F(DsmCallTest, EachAttemptCarriesTheTokenOfItsMoment)
{
    server.Enqueue(ScriptedReply::Json(R"({"code":"5001","message":"busy"})", 503));
    QObject::connect(&server, &ScriptedHttpServer::SigRequest, &server,
                     [this] { gateway.config.accessToken = QStringLiteral("renewed"); });
    Run(ScriptedReply::Json(Kept), 2);
    EXPECT_TRUE(response->IsSuccess());
    ASSERT_EQ(server.GetRequestCount(), 2);
    EXPECT_TRUE(server.GetRequests()[0].body.contains("access_token=token&"));
    EXPECT_TRUE(server.GetRequests()[1].body.contains("access_token=renewed&"));
}

TEST_F(DsmCallTest, TheLastKnownRecordServesWhileTheGatewayIsDown)
{
    Run(ScriptedReply::Json(Kept));
    Run(ScriptedReply::Json(R"({"code":"5002","message":"the store failed"})", 500));
    EXPECT_TRUE(response->IsSuccess());
    EXPECT_TRUE(response->IsFromCache());
    EXPECT_EQ(response->GetEntity()->m_name.toStdString(), "kept");
    Run(ScriptedReply::Json(R"({"code":"0","data":[]})"));
    EXPECT_TRUE(response->IsFromCache()) << "a reply of the wrong shape is the gateway's fault too";
}

TEST_F(DsmCallTest, AnExpiredTokenIsNotCovered)
{
    Run(ScriptedReply::Json(Kept));
    Run(ScriptedReply::Json(R"({"code":"2003","message":"expired"})", 401));
    EXPECT_FALSE(response->IsSuccess());
    EXPECT_EQ(response->GetErrorCode().toStdString(), "2003");
    EXPECT_EQ(response->GetErrorDesc().toStdString(), "expired");
}

TEST_F(DsmCallTest, AnotherUserNeverSeesTheRecord)
{
    Run(ScriptedReply::Json(Kept));
    const ScriptedReply down = ScriptedReply::Html("down", 502);
    TLGlobalData::Instance()->SetUser(QStringLiteral("other"), QStringLiteral("merchant"));
    Run(down);
    EXPECT_FALSE(response->IsSuccess());
    EXPECT_TRUE(response->GetEntity()->m_name.isEmpty());
    TLGlobalData::Instance()->ClearUser();
    Run(down);
    EXPECT_FALSE(response->IsSuccess());
    TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    Run(down);
    EXPECT_TRUE(response->IsFromCache());
    manager.ClearCache();
    Run(down);
    EXPECT_FALSE(response->IsSuccess());
}

TEST_F(DsmCallTest, WithoutAGatewayAddressTheCallSaysSo)
{
    gateway.config.address.clear();
    Run(ScriptedReply::Json(Kept), 3);
    EXPECT_EQ(response->GetErrorDesc().toStdString(), "No gateway address is configured.");
    EXPECT_EQ(server.GetRequestCount(), 0);
}
