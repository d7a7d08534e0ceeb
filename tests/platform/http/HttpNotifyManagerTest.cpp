#include "http/HttpNotifyManager.h"

#include "FakeRequest.h"
#include "FakeResponse.h"

#include "http/HttpObserverBase.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <vector>

namespace {

using Log = std::vector<std::string>;

class Observer final : public HttpObserverBase
{
public:
    Observer(Log& log, std::string name) : m_log(log), m_name(std::move(name)) {}

    void OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                      QSharedPointer<IHttpResponse> response) override
    {
        m_log.push_back(m_name + std::to_string(id));
        lastRequest = request;
        lastResponse = response;
        if (onNotify) {
            onNotify();
        }
    }

    std::function<void()> onNotify;
    QWeakPointer<IHttpRequest> lastRequest;
    QWeakPointer<IHttpResponse> lastResponse;

private:
    Log& m_log;
    std::string m_name;
};

// Leaves the hub after main, when most of the process is gone.
Log staticLog;
Observer staticObserver(staticLog, "static");

HttpNotifyManager& Hub()
{
    return *HttpNotifyManager::Instance();
}

void Dispatch(int id)
{
    Hub().Dispatch(id, QSharedPointer<IHttpRequest>(), QSharedPointer<IHttpResponse>());
}

} // namespace

TEST(HttpNotifyManagerTest, DeliversInTheOrderOfRegistrationWithBothObjects)
{
    Log log;
    Observer a(log, "a");
    Observer b(log, "b");
    Hub().AddObserver(&b, 1);
    Hub().AddObserver(&a, 1);
    const QSharedPointer<IHttpRequest> request = QSharedPointer<FakeRequest>::create(QUrl());
    const QSharedPointer<IHttpResponse> response = QSharedPointer<FakeResponse>::create();
    Hub().Dispatch(1, request, response);
    EXPECT_EQ(log, (Log{"b1", "a1"}));
    EXPECT_EQ(a.lastRequest.toStrongRef(), request);
    EXPECT_EQ(a.lastResponse.toStrongRef(), response);
}

TEST(HttpNotifyManagerTest, DeliversOnlyTheNumbersAskedFor)
{
    Log log;
    Observer a(log, "a");
    Hub().AddObserver(&a, QList<int>{1, 2});
    Dispatch(1);
    Dispatch(2);
    Dispatch(3);
    EXPECT_EQ(log, (Log{"a1", "a2"}));
}

TEST(HttpNotifyManagerTest, RegisteringTwiceDeliversOnce)
{
    Log log;
    Observer a(log, "a");
    Hub().AddObserver(&a, QList<int>{1, 1});
    Hub().AddObserver(&a, 1);
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1"}));
}

TEST(HttpNotifyManagerTest, RemovalTakesAllNumbersAndAnUnknownObserverIsIgnored)
{
    Log log;
    Observer a(log, "a");
    Observer unknown(log, "u");
    Hub().AddObserver(&a, QList<int>{1, 2});
    Hub().RemoveAllMessage(&unknown);
    Hub().RemoveAllMessage(nullptr);
    Dispatch(1);
    Hub().RemoveAllMessage(&a);
    Dispatch(1);
    Dispatch(2);
    EXPECT_EQ(log, (Log{"a1"}));
}

TEST(HttpNotifyManagerTest, NoObserverIsNoProblem)
{
    Hub().AddObserver(nullptr, 1);
    Dispatch(1);
}

TEST(HttpNotifyManagerTest, AnObserverMayRemoveItself)
{
    Log log;
    Observer a(log, "a");
    Observer b(log, "b");
    a.onNotify = [&a] { Hub().RemoveAllMessage(&a); };
    Hub().AddObserver(&a, 1);
    Hub().AddObserver(&b, 1);
    Dispatch(1);
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1", "b1", "b1"}));
}

TEST(HttpNotifyManagerTest, RemovalOfALaterObserverTakesEffectAtOnce)
{
    Log log;
    Observer a(log, "a");
    Observer b(log, "b");
    Observer c(log, "c");
    a.onNotify = [&b] { Hub().RemoveAllMessage(&b); };
    for (Observer* const observer : {&a, &b, &c}) {
        Hub().AddObserver(observer, 1);
    }
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1", "c1"}));
}

TEST(HttpNotifyManagerTest, RemovalOfAnEarlierObserverSkipsNobody)
{
    Log log;
    Observer a(log, "a");
    Observer b(log, "b");
    Observer c(log, "c");
    b.onNotify = [&a] { Hub().RemoveAllMessage(&a); };
    for (Observer* const observer : {&a, &b, &c}) {
        Hub().AddObserver(observer, 1);
    }
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1", "b1", "c1"}));
}

TEST(HttpNotifyManagerTest, AnObserverAddedDuringADeliveryHearsOfTheNextOne)
{
    Log log;
    Observer a(log, "a");
    Observer b(log, "b");
    a.onNotify = [&b] { Hub().AddObserver(&b, 1); };
    Hub().AddObserver(&a, 1);
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1"}));
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1", "a1", "b1"}));
}

TEST(HttpNotifyManagerTest, OneThatLeavesAndComesBackHearsOfTheNextOne)
{
    Log log;
    Observer a(log, "a");
    Observer b(log, "b");
    a.onNotify = [&b] {
        Hub().RemoveAllMessage(&b);
        Hub().AddObserver(&b, 1);
    };
    Hub().AddObserver(&a, 1);
    Hub().AddObserver(&b, 1);
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1"}));
}

TEST(HttpNotifyManagerTest, AnObserverMayBeDestroyedWhileItIsNotified)
{
    Log log;
    auto a = std::make_unique<Observer>(log, "a");
    Observer b(log, "b");
    const std::function<void()> destroy = [&a] { a.reset(); };
    a->onNotify = [&destroy] { destroy(); };
    Hub().AddObserver(a.get(), 1);
    Hub().AddObserver(&b, 1);
    Dispatch(1);
    EXPECT_EQ(a, nullptr);
    EXPECT_EQ(log, (Log{"a1", "b1"}));
}

TEST(HttpNotifyManagerTest, ALaterObserverMayBeDestroyed)
{
    Log log;
    Observer a(log, "a");
    auto b = std::make_unique<Observer>(log, "b");
    a.onNotify = [&b] { b.reset(); };
    Hub().AddObserver(&a, 1);
    Hub().AddObserver(b.get(), 1);
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1"}));
}

TEST(HttpNotifyManagerTest, ANewObserverAtTheAddressOfADestroyedOneHearsOfTheNextOne)
{
    Log log;
    Observer a(log, "a");
    std::optional<Observer> slot;
    slot.emplace(log, "old");
    a.onNotify = [&] {
        slot.reset();
        slot.emplace(log, "new");
        Hub().AddObserver(&*slot, 1);
    };
    Hub().AddObserver(&a, 1);
    Hub().AddObserver(&*slot, 1);
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1"}));
}

TEST(HttpNotifyManagerTest, AnObserverMayDispatchInTurn)
{
    Log log;
    Observer a(log, "a");
    Observer b(log, "b");
    Observer c(log, "c");
    int depth = 0;
    a.onNotify = [&depth] {
        if (++depth == 1) {
            Dispatch(2);
            Dispatch(1);
        }
    };
    b.onNotify = [&depth, &c] {
        if (depth == 2) {
            Hub().RemoveAllMessage(&c);
        }
    };
    Hub().AddObserver(&a, 1);
    Hub().AddObserver(&b, 1);
    Hub().AddObserver(&c, QList<int>{1, 2});
    Dispatch(1);
    EXPECT_EQ(log, (Log{"a1", "c2", "a1", "b1", "b1"}));
}

TEST(HttpNotifyManagerTest, TheSignalComesBeforeTheObservers)
{
    Log log;
    Observer a(log, "a");
    Hub().AddObserver(&a, 7);
    QObject context;
    QObject::connect(&Hub(), &HttpNotifyManager::SigDispatched, &context,
                     [&log](int id) { log.push_back("signal" + std::to_string(id)); });
    Dispatch(7);
    Dispatch(8);
    EXPECT_EQ(log, (Log{"signal7", "a7", "signal8"}));
}

TEST(HttpNotifyManagerTest, BothObjectsLiveThroughADeliveryInWhichTheirOwnerEnds)
{
    Log log;
    auto request = QSharedPointer<IHttpRequest>(new FakeRequest(QUrl()));
    Observer a(log, "a");
    Observer b(log, "b");
    a.onNotify = [&request] { request.reset(); };
    b.onNotify = [&b] { EXPECT_FALSE(b.lastRequest.isNull()); };
    Hub().AddObserver(&a, 1);
    Hub().AddObserver(&b, 1);
    Hub().Dispatch(1, request, QSharedPointer<IHttpResponse>());
    EXPECT_EQ(log, (Log{"a1", "b1"}));
    EXPECT_TRUE(b.lastRequest.isNull());
}

TEST(HttpNotifyManagerTest, AStaticObserverIsTold)
{
    staticLog.clear();
    Hub().AddObserver(&staticObserver, 9);
    Dispatch(9);
    EXPECT_EQ(staticLog, (Log{"static9"}));
}
