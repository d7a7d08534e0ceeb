#include "FakeHttpManager.h"

#include "CachedReplyResponse.h"
#include "FunctionListRequest.h"
#include "gateway/HttpManagerProxy.h"

#include "base/Provided.h"
#include "core/TLGlobalData.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

class HttpManagerProxyTest : public ::testing::Test
{
protected:
    // Without a user no reply is cached.
    HttpManagerProxyTest()
    {
        TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    }
    ~HttpManagerProxyTest() override { TLGlobalData::Instance()->ClearUser(); }

    /// Sends a call and returns its response.
    QSharedPointer<CachedReplyResponse> Send(bool mayBeCached)
    {
        const auto response = QSharedPointer<CachedReplyResponse>::create();
        response->SetAutoCache(mayBeCached);
        m_proxy.Send(m_request, response, {}, 0, 1);
        return response;
    }
    bool IsWriteOf(int call) const { return m_started.at(call).at(1).toBool(); }

    FakeHttpManager m_http;
    Provided<IHttpManager> m_httpProvided{&m_http};
    HttpManagerProxy m_proxy;
    QSharedPointer<FunctionListRequest> m_request = QSharedPointer<FunctionListRequest>::create();
    QSignalSpy m_started{&m_proxy, &HttpManagerProxy::SigStarted};
};

TEST_F(HttpManagerProxyTest, ACallIsAWriteUnlessACachedReplyMayServe)
{
    Send(true);
    Send(false);
    ASSERT_EQ(m_started.count(), 2);
    EXPECT_FALSE(IsWriteOf(0));
    EXPECT_TRUE(IsWriteOf(1));
}

TEST_F(HttpManagerProxyTest, AWriteThatSucceedsSendsAnOlderReadAgain)
{
    QObject::connect(&m_proxy, &HttpManagerProxy::SigStarted, &m_proxy, &HttpManagerProxy::KeepUpToDate);
    m_proxy.SetOpen(false);
    Send(true);
    m_http.Answer(0, "{}");
    Send(false);
    ASSERT_EQ(m_http.GetCallCount(), 2);
    m_http.Answer(1, "{}");
    ASSERT_EQ(m_http.GetCallCount(), 3);
    EXPECT_EQ(m_http.GetCall(2).request, m_request);
}

TEST_F(HttpManagerProxyTest, AWriteStaysOneWhenItsResponseBecomesCacheableInFlight)
{
    QObject::connect(&m_proxy, &HttpManagerProxy::SigStarted, &m_proxy, &HttpManagerProxy::KeepUpToDate);
    m_proxy.SetOpen(false);
    Send(true);
    m_http.Answer(0, "{}");
    const auto response = Send(false);
    response->SetAutoCache(true);
    m_http.Answer(1, "{}");
    EXPECT_EQ(m_http.GetCallCount(), 3) << "the read from before the change is sent again";
}

TEST_F(HttpManagerProxyTest, AReadStaysOneWhenItsResponseIsNoLongerCacheable)
{
    QObject::connect(&m_proxy, &HttpManagerProxy::SigStarted, &m_proxy, &HttpManagerProxy::KeepUpToDate);
    m_proxy.SetOpen(false);
    Send(true);
    m_http.Answer(0, "{}");
    const auto response = Send(true);
    response->SetAutoCache(false);
    m_http.Answer(1, "{}");
    EXPECT_EQ(m_http.GetCallCount(), 2) << "a read changes nothing";
}
