#include "PostgresConnection.h"
#include "store/StoreError.h"
#include "store/postgres/PostgresStore.h"
#include "support/Await.h"
#include "support/LogCapture.h"
#include "support/PostgresProxy.h"
#include "support/PostgresServer.h"
#include "support/SampleConfiguration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace TLGateway {

using testing::AllOf;
using testing::HasSubstr;

class PostgresTroubleTest : public testing::Test
{
protected:
    using Answer = std::future<std::optional<WriteFailure>>;

    PostgresTroubleTest()
    {
        options.url = url;
        for (const char* pin : {"anna", "bert"}) {
            const UserRecord record{pin, "m", "h"};
            EXPECT_FALSE(Await([&](auto done) { OpenStore()->AddUser(record, done); }));
        }
        store.reset();
    }

    PostgresStore* OpenStore()
    {
        store.reset();
        store = std::make_unique<PostgresStore>(options, log.Logger());
        return store.get();
    }

    // Adds an entry to the user's.
    Answer Add(const std::string& pin, const std::string& id)
    {
        const auto promise = std::make_shared<std::promise<std::optional<WriteFailure>>>();
        store->EditConfiguration(
            pin, "user",
            [id](const AutoRunConfiguration& stored) {
                AutoRunConfiguration next = stored;
                next.customItems.push_back(CustomEntry(id));
                return next;
            },
            [promise](const std::optional<WriteFailure>& failure) { promise->set_value(failure); });
        return promise->get_future();
    }

    static std::set<std::string> Stored(IStore& from, const std::string& pin)
    {
        std::set<std::string> ids;
        for (const AutoRunEntry& entry : from.FindConfiguration(pin).configuration.customItems) {
            ids.insert(entry.itemId);
        }
        return ids;
    }

    static bool IsSoon(const std::function<bool()>& condition)
    {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(120);
        while (!condition()) {
            if (std::chrono::steady_clock::now() > deadline) {
                return false;
            }
            std::this_thread::yield();
        }
        return true;
    }

    static bool IsReady(const Answer& answer, std::chrono::milliseconds within = {})
    {
        return answer.wait_for(within) == std::future_status::ready;
    }

    // Not the one that all tests share: after a crash a server looks through all of its databases.
    static PostgresServer& Server()
    {
        static PostgresServer server;
        if (!server.IsRunning()) {
            server.Start();
        }
        return server;
    }

    PostgresServer& server = Server();
    const std::string url = server.NewDatabase();
    LogCapture log;
    PostgresStore::Options options;
    std::unique_ptr<PostgresStore> store;
};

// Several threads write all the time, each to a user of its own and each when its last write was answered,
// while something happens to the server. In the end exactly what was answered with success is stored.
class PostgresUnderWritesTest : public PostgresTroubleTest
{
protected:
    static constexpr std::size_t Writers = 6;

    struct Writer
    {
        std::set<std::string> stored;
        std::thread thread;
    };

    void Begin()
    {
        {
            PostgresStore::Options patient;
            patient.url = url;
            PostgresStore adding(patient, log.Logger());
            for (std::size_t i = 0; i < Writers; ++i) {
                const UserRecord record{Pin(i), "m", "h"};
                ASSERT_FALSE(Await([&](auto done) { adding.AddUser(record, done); }));
            }
        }
        OpenStore();
        for (std::size_t i = 0; i < Writers; ++i) {
            writers[i].thread = std::thread([this, i] { WriteUntilTheEnd(i); });
        }
    }

    void TearDown() override
    {
        // Also when the test ended early, with the server gone.
        Server().Thaw();
        JoinWriters();
    }

    void JoinWriters()
    {
        isEnding = true;
        for (Writer& writer : writers) {
            if (writer.thread.joinable()) {
                writer.thread.join();
            }
        }
    }

    void WriteUntilTheEnd(std::size_t i)
    {
        for (int n = 0; !isEnding; ++n) {
            const std::string id = std::to_string(n);
            const auto failure = Add(Pin(i), id).get();
            if (!failure) {
                writers[i].stored.insert(id);
                ++successes;
            } else {
                EXPECT_EQ(failure->reason, WriteFailure::Reason::StoreFailed) << failure->message;
                ++refusals;
                std::this_thread::yield();
            }
        }
    }

    bool AreMoreStored(int more)
    {
        const int before = successes;
        return IsSoon([&] { return successes >= before + more; });
    }

    bool AreMoreRefused()
    {
        const int before = refusals;
        return IsSoon([&] { return refusals > before; });
    }

    void End()
    {
        JoinWriters();
        store->Close();
        PostgresStore other(options, log.Logger());
        for (std::size_t i = 0; i < Writers; ++i) {
            EXPECT_EQ(Stored(other, Pin(i)), writers[i].stored) << log.Text();
            EXPECT_EQ(other.FindConfiguration(Pin(i)).revision,
                      static_cast<std::int64_t>(writers[i].stored.size()));
        }
    }

    static std::string Pin(std::size_t i) { return "writer" + std::to_string(i); }

    std::array<Writer, Writers> writers;
    std::atomic<bool> isEnding{false};
    std::atomic<int> successes{0};
    std::atomic<int> refusals{0};
};

TEST_F(PostgresUnderWritesTest, KilledServerKeepsWhatWasAnsweredAndNothingElse)
{
    Begin();
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(AreMoreStored(30));
        server.Kill();
        EXPECT_THROW(static_cast<void>(store->FindUser("anna")), StoreError);
        // Those in doubt wait for the server.
        server.Start();
        EXPECT_TRUE(AreMoreStored(10));
        EXPECT_TRUE(store->FindUser("anna"));
    }
    End();
}

TEST_F(PostgresUnderWritesTest, StoppedServerKeepsWhatWasAnsweredAndNothingElse)
{
    Begin();
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(AreMoreStored(30));
        server.Stop();
        EXPECT_TRUE(AreMoreRefused());
        EXPECT_THROW(static_cast<void>(store->FindUser("anna")), StoreError);
        server.Start();
        EXPECT_TRUE(AreMoreStored(10));
        EXPECT_TRUE(store->FindUser("anna"));
    }
    End();
}

TEST_F(PostgresUnderWritesTest, EndedSessionsAreReplacedAndEveryAnswerIsTrue)
{
    Begin();
    for (int round = 0; round < 20; ++round) {
        EXPECT_TRUE(AreMoreStored(5));
        server.Execute("SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE usename = 'gateway'");
        EXPECT_TRUE(store->FindUser("anna")) << "a read is tried again";
    }
    End();
}

TEST_F(PostgresUnderWritesTest, FrozenServerIsNotWaitedForForever)
{
    options.limits = {std::chrono::seconds(1), std::chrono::seconds(2), std::chrono::seconds(3)};
    Begin();
    EXPECT_TRUE(AreMoreStored(20));
    server.Freeze();
    EXPECT_THROW(static_cast<void>(store->FindUser("anna")), StoreError);
    server.Thaw();
    EXPECT_TRUE(AreMoreStored(10));
    EXPECT_TRUE(IsSoon([&] {
        try {
            return store->FindUser("anna").has_value();
        } catch (const StoreError&) {
            return false;
        }
    }));
    End();
}

TEST_F(PostgresTroubleTest, ServerThatIsGoneIsSaidAndComesBackUnnoticed)
{
    OpenStore();
    ASSERT_FALSE(Add("anna", "before").get());
    ASSERT_TRUE(store->FindUser("anna"));
    server.Stop();
    try {
        static_cast<void>(store->FindUser("anna"));
        FAIL();
    } catch (const StoreError& error) {
        EXPECT_THAT(error.what(), AllOf(HasSubstr("reading a user failed"), HasSubstr(url),
                                        HasSubstr("the gateway recovers by itself")));
    }
    EXPECT_EQ(Add("anna", "meanwhile").get()->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_THAT(log.Text(),
                AllOf(HasSubstr("storing a configuration failed"), HasSubstr("recovers by itself")));
    server.Start();
    EXPECT_TRUE(store->FindUser("anna"));
    EXPECT_FALSE(Add("anna", "after").get());
    EXPECT_EQ(Stored(*store, "anna"), (std::set<std::string>{"before", "after"}));

    // The connections are those of before once more, and nothing was asked meanwhile.
    server.Kill();
    server.Start();
    EXPECT_FALSE(Add("anna", "again").get());
    EXPECT_TRUE(store->FindUser("anna"));
}

TEST_F(PostgresTroubleTest, LockOfAnotherSessionIsWaitedForThenRefusedAndHarmsNoOther)
{
    options.limits.lock = std::chrono::milliseconds(300);
    OpenStore();
    PostgresConnection other(PostgresTarget(url), {});
    other.Execute("BEGIN; SELECT FROM gateway_user WHERE pin = 'anna' FOR UPDATE");
    auto anna = Add("anna", "1");
    auto bert = Add("bert", "1");
    EXPECT_EQ(anna.get()->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_FALSE(bert.get());
    EXPECT_THAT(log.Text(), HasSubstr("Another session holds a lock: find it in pg_stat_activity"));
    EXPECT_TRUE(store->FindUser("anna")) << "reads go on";
    other.Execute("ROLLBACK");
    EXPECT_FALSE(Add("anna", "2").get());
    EXPECT_EQ(Stored(*store, "anna"), std::set<std::string>{"2"});
}

TEST_F(PostgresTroubleTest, AbandonedTransactionOfAGatewayThatFellSilentBlocksNobodyForever)
{
    PostgresLimits short_;
    short_.answer = std::chrono::seconds(3);
    PostgresConnection silent(PostgresTarget(url), short_);
    silent.Execute("BEGIN; SELECT FROM gateway_user WHERE pin = 'anna' FOR UPDATE");
    OpenStore();
    EXPECT_TRUE(IsSoon([&] { return !Add("anna", "1").get(); }));
}

// A connection that ends at the moment of the commit.
class PostgresInDoubtTest : public PostgresTroubleTest
{
protected:
    using AtCommit = PostgresProxy::AtCommit;

    void OpenThroughProxy()
    {
        direct = std::make_unique<PostgresStore>(options, log.Logger());
        options.url = proxy.Url();
        OpenStore();
        ASSERT_FALSE(Add("anna", "before").get());
    }

    std::set<std::string> StoredOfAnna() { return Stored(*direct, "anna"); }

    PostgresProxy proxy{url};
    std::unique_ptr<PostgresStore> direct;
};

TEST_F(PostgresInDoubtTest, CommitThatWasDoneIsASuccess)
{
    OpenThroughProxy();
    proxy.Break(AtCommit::CutAfter);
    EXPECT_FALSE(Add("anna", "1").get());
    EXPECT_TRUE(proxy.IsBroken());
    EXPECT_EQ(StoredOfAnna(), (std::set<std::string>{"before", "1"}));
    EXPECT_EQ(direct->FindConfiguration("anna").revision, 2);
    EXPECT_THAT(log.Text(), AllOf(HasSubstr("committing 1 write(s) failed"), HasSubstr("are stored, as")));
    EXPECT_FALSE(Add("anna", "2").get());
}

TEST_F(PostgresInDoubtTest, CommitThatDidNotArriveIsRefused)
{
    OpenThroughProxy();
    proxy.Break(AtCommit::CutBefore);
    EXPECT_EQ(Add("anna", "1").get()->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_TRUE(proxy.IsBroken());
    EXPECT_EQ(StoredOfAnna(), std::set<std::string>{"before"});
    EXPECT_THAT(log.Text(), HasSubstr("are not stored, as"));
    EXPECT_FALSE(Add("anna", "2").get());
    EXPECT_EQ(direct->FindConfiguration("anna").revision, 2);
}

TEST_F(PostgresInDoubtTest, FirstTransactionOfAWriterIsNoException)
{
    options.url = proxy.Url();
    for (const auto& [how, isStored] : {std::pair(AtCommit::CutAfter, true), {AtCommit::CutBefore, false}}) {
        OpenStore();
        proxy.Break(how);
        EXPECT_EQ(!Add("anna", std::to_string(isStored)).get().has_value(), isStored);
        EXPECT_TRUE(proxy.IsBroken());
    }
    EXPECT_EQ(Stored(*store, "anna"), std::set<std::string>{"1"});
}

TEST_F(PostgresInDoubtTest, TransactionThatIsStillUnderWayIsWaitedFor)
{
    OpenThroughProxy();
    proxy.Break(AtCommit::KeepBefore);
    auto answer = Add("anna", "1");
    ASSERT_TRUE(IsSoon([&] { return proxy.IsBroken(); }));
    // The question waits for the end of the transaction that the server still knows.
    PostgresConnection outside(PostgresTarget(url), {});
    ASSERT_TRUE(IsSoon([&] {
        return outside.SingleValue("SELECT count(*) FROM pg_stat_activity WHERE wait_event_type = 'Lock' "
                                   "AND datname = current_database()") == "1";
    }));
    EXPECT_FALSE(IsReady(answer));
    outside.Execute("SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                    "WHERE datname = current_database() AND state = 'idle in transaction'");
    EXPECT_EQ(answer.get()->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_EQ(StoredOfAnna(), std::set<std::string>{"before"});
}

TEST_F(PostgresInDoubtTest, AnswerWaitsForAServerThatCannotBeReachedAndOthersAreRefusedMeanwhile)
{
    OpenThroughProxy();
    for (const AtCommit how : {AtCommit::CutAfter, AtCommit::CutBefore}) {
        proxy.Break(how, true);
        auto answer = Add("anna", std::to_string(how == AtCommit::CutAfter));
        ASSERT_TRUE(IsSoon([&] { return proxy.IsBroken(); }));
        EXPECT_EQ(Add("bert", "1").get()->reason, WriteFailure::Reason::StoreFailed);
        EXPECT_FALSE(IsReady(answer)) << "nobody can know";
        proxy.Release();
        EXPECT_EQ(!answer.get().has_value(), how == AtCommit::CutAfter);
        EXPECT_FALSE(Add("bert", "2").get());
    }
    EXPECT_EQ(StoredOfAnna(), (std::set<std::string>{"before", "1"}));
    EXPECT_EQ(Stored(*direct, "bert"), std::set<std::string>{"2"});
}

TEST_F(PostgresInDoubtTest, CloseEndsTheDoubtWithAnAnswerThatSaysSo)
{
    options.doubtAtClose = std::chrono::milliseconds(300);
    OpenThroughProxy();
    proxy.Break(AtCommit::CutAfter, true);
    auto answer = Add("anna", "1");
    ASSERT_TRUE(IsSoon([&] { return proxy.IsBroken(); }));
    store->Close();
    const auto failure = answer.get();
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, WriteFailure::Reason::OutcomeUnknown);
    EXPECT_THAT(failure->message, HasSubstr("not known whether this is stored"));
    EXPECT_THAT(log.Text(), HasSubstr("may or may not be stored"));
}

TEST_F(PostgresInDoubtTest, WritesOfABatchShareOneFate)
{
    OpenThroughProxy();
    for (const AtCommit how : {AtCommit::CutAfter, AtCommit::CutBefore}) {
        std::promise<void> isBlocked;
        std::promise<void> release;
        const auto released = release.get_future().share();
        store->EditConfiguration(
            "bert", "user",
            [&, isFirst = std::make_shared<std::atomic<bool>>(true)](const AutoRunConfiguration& stored) {
                if (isFirst->exchange(false)) {
                    isBlocked.set_value();
                    released.wait();
                }
                return stored;
            },
            [](const std::optional<WriteFailure>& failure) { EXPECT_FALSE(failure); });
        isBlocked.get_future().wait();
        std::vector<Answer> answers;
        answers.reserve(10);
        for (int i = 0; i < 10; ++i) {
            answers.push_back(Add("anna", std::to_string(static_cast<int>(how) * 100 + i)));
        }
        auto unknown = Add("nobody", "1");
        const std::size_t before = StoredOfAnna().size();
        // The first commit is that of the write that blocked.
        proxy.Break(how, false, 2);
        release.set_value();
        for (Answer& answer : answers) {
            EXPECT_EQ(!answer.get().has_value(), how == AtCommit::CutAfter);
        }
        EXPECT_EQ(unknown.get()->reason, WriteFailure::Reason::StoreFailed);
        EXPECT_EQ(StoredOfAnna().size(), before + (how == AtCommit::CutAfter ? 10 : 0));
    }
}

} // namespace TLGateway
