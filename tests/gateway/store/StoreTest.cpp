#include "store/StoreTest.h"

#include "server/AppKeyWatcher.h"
#include "store/StoreError.h"
#include "json/InvalidInput.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <future>
#include <stdexcept>
#include <thread>
#include <vector>

namespace TLGateway {

using testing::HasSubstr;

TEST_P(StoreTest, EverythingIsThereAfterReopening)
{
    Open();
    AddUser("anna");
    ASSERT_FALSE(Put("anna", SampleConfiguration()));
    ASSERT_FALSE(Await([&](auto done) { store->SetAppKey("k", "s", done); }));
    ASSERT_FALSE(Await([&](auto done) { store->AddToken({"hash", "anna", "merchant", "d", 77}, 0, done); }));
    Open();
    EXPECT_EQ(store->FindUser("anna")->belongType, "merchant");
    EXPECT_EQ(store->FindConfiguration("anna").configuration, SampleConfiguration());
    EXPECT_EQ(store->ListAppKeys(), (std::map<std::string, std::string, std::less<>>{{"k", "s"}}));
    EXPECT_EQ(store->FindToken("hash")->expiresAt, 77);
    EXPECT_FALSE(store->FindToken("other"));
    EXPECT_FALSE(store->FindUser("Anna"));
}

TEST_P(StoreTest, UserWithoutConfigurationHasRevisionZero)
{
    Open();
    EXPECT_EQ(store->FindConfiguration("nobody").revision, 0);
    EXPECT_TRUE(store->ListRevisions("nobody").empty());
}

TEST_P(StoreTest, TheLastTwentyRevisionsAreKept)
{
    Open();
    AddUser("anna");
    AddUser("bert");
    ASSERT_FALSE(Put("bert", Named("other")));
    for (int i = 1; i <= 25; ++i) {
        now = 1000 + i;
        ASSERT_FALSE(Put("anna", Named(std::to_string(i))));
    }
    const auto revisions = store->ListRevisions("anna");
    ASSERT_EQ(revisions.size(), 20U);
    for (std::size_t i = 0; i < revisions.size(); ++i) {
        const int expected = 25 - static_cast<int>(i);
        EXPECT_EQ(revisions[i].revision, expected);
        EXPECT_EQ(revisions[i].configuration, Named(std::to_string(expected)));
        EXPECT_EQ(revisions[i].writtenAt, 1000 + expected);
        EXPECT_EQ(revisions[i].author, "user");
    }
    EXPECT_EQ(store->ListRevisions("bert").size(), 1U);
}

TEST_P(StoreTest, ConcurrentWritesOfManyUsersKeepTheOrderOfEach)
{
    Open();
    constexpr int users = 8;
    constexpr int each = 40;
    for (int user = 0; user < users; ++user) {
        AddUser("user" + std::to_string(user));
    }
    std::atomic<int> answered{0};
    std::vector<std::thread> threads;
    threads.reserve(users);
    for (int user = 0; user < users; ++user) {
        threads.emplace_back([&, user] {
            for (int i = 1; i <= each; ++i) {
                store->EditConfiguration(
                    "user" + std::to_string(user), "user",
                    [i](const AutoRunConfiguration&) { return Named(std::to_string(i)); },
                    [&](const std::optional<WriteFailure>& failure) {
                        EXPECT_FALSE(failure);
                        ++answered;
                    });
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    Open(); // closes first, which waits for the writes
    EXPECT_EQ(answered, users * each);
    for (int user = 0; user < users; ++user) {
        const auto stored = store->FindConfiguration("user" + std::to_string(user));
        EXPECT_EQ(stored.revision, each);
        EXPECT_EQ(stored.configuration, Named(std::to_string(each)));
    }
}

TEST_P(StoreTest, EditSeesWhatTheWriteBeforeItStored)
{
    Open();
    AddUser("anna");
    std::vector<std::future<void>> done;
    for (int i = 0; i < 5; ++i) {
        const auto promise = std::make_shared<std::promise<void>>();
        done.push_back(promise->get_future());
        store->EditConfiguration(
            "anna", "user",
            [i](const AutoRunConfiguration& stored) {
                AutoRunConfiguration next = stored;
                next.customItems.push_back(CustomEntry(std::to_string(i)));
                return next;
            },
            [promise](const std::optional<WriteFailure>&) { promise->set_value(); });
    }
    for (auto& future : done) {
        future.wait();
    }
    EXPECT_EQ(store->FindConfiguration("anna").configuration.customItems.size(), 5U);
}

TEST_P(StoreTest, ConfigurationOfAnUnknownUserIsNotStored)
{
    Open();
    EXPECT_EQ(Put("nobody", SampleConfiguration())->reason, WriteFailure::Reason::StoreFailed);
    EXPECT_EQ(store->FindConfiguration("nobody").revision, 0);
}

TEST_P(StoreTest, UserThatExistsIsNotAddedAgain)
{
    Open();
    AddUser("anna");
    const auto failure = Await([&](auto done) { store->AddUser({"anna", "other", "x"}, done); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, WriteFailure::Reason::UserExists);
    EXPECT_THAT(failure->message, HasSubstr("already"));
    EXPECT_EQ(store->FindUser("anna")->belongType, "merchant");
}

TEST_P(StoreTest, PasswordOfAnUnknownUserIsRefused)
{
    Open();
    const auto failure = Await([&](auto done) { store->SetPassword("nobody", "x", done); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, WriteFailure::Reason::NoSuchUser);
}

TEST_P(StoreTest, LongExpiredTokensAreDroppedAtTheNextLogin)
{
    Open();
    AddUser("anna");
    ASSERT_FALSE(Await([&](auto done) { store->AddToken({"old", "anna", "m", "d", 100}, 0, done); }));
    ASSERT_FALSE(Await([&](auto done) { store->AddToken({"new", "anna", "m", "d", 900}, 101, done); }));
    EXPECT_FALSE(store->FindToken("old"));
    EXPECT_TRUE(store->FindToken("new"));
}

TEST_P(StoreTest, LoginFailuresAreCountedWithinTheSpanAndDroppedWhenOld)
{
    Open();
    for (const UnixTime at : {100, 200, 300}) {
        ASSERT_FALSE(Await([&](auto done) { store->AddLoginFailure("anna", at, 0, done); }));
    }
    EXPECT_EQ(store->CountLoginFailures("anna", 0), 3U);
    EXPECT_EQ(store->CountLoginFailures("anna", 100), 2U);
    EXPECT_EQ(store->CountLoginFailures("bert", 0), 0U);
    EXPECT_EQ(store->FindLoginFailure("anna", 1), 300);
    EXPECT_EQ(store->FindLoginFailure("anna", 3), 100);
    EXPECT_FALSE(store->FindLoginFailure("anna", 4));
    ASSERT_FALSE(Await([&](auto done) { store->AddLoginFailure("bert", 400, 250, done); }));
    EXPECT_EQ(store->CountLoginFailures("anna", 0), 1U);
}

TEST_P(StoreTest, CatalogueIsReplacedAsAWhole)
{
    Open();
    ASSERT_FALSE(Await([&](auto done) {
        store->ReplaceApps({{"A", "a", "", "x", 0}, {"B", "b", "", "x", 1}}, done);
    }));
    ASSERT_FALSE(Await([&](auto done) { store->ReplaceApps({{"C", "c", "", "x", 0}}, done); }));
    ASSERT_EQ(store->ListApps().size(), 1U);
    EXPECT_EQ(store->ListApps()[0].name, "C");
    EXPECT_TRUE(Await([&](auto done) {
        store->ReplaceApps({{"D", "d", "", "x", 0}, {"E", "d", "", "x", 0}}, done);
    }));
    EXPECT_EQ(store->ListApps()[0].name, "C") << "a refused catalogue leaves the one before";
}

TEST_P(StoreTest, StoredDocumentThatCannotBeReadIsDamage)
{
    Open();
    AddUser("anna");
    ASSERT_FALSE(Put("anna", SampleConfiguration()));
    database->Execute("UPDATE configuration SET document = '{}'");
    EXPECT_THROW(static_cast<void>(store->FindConfiguration("anna")), StoreError);
    EXPECT_EQ(Put("anna", SampleConfiguration())->reason, WriteFailure::Reason::StoreFailed);
}

TEST_P(StoreTest, EditThatRefusesLeavesEverythingAsItIs)
{
    Open();
    AddUser("anna");
    const auto refuse = [](const AutoRunConfiguration&) -> AutoRunConfiguration {
        throw InvalidInput(InvalidInput::Rule::Limit, "no");
    };
    const auto failure = Await([&](auto done) { store->EditConfiguration("anna", "user", refuse, done); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, WriteFailure::Reason::EditRefused);
    EXPECT_EQ(failure->message, "no");
    EXPECT_EQ(store->FindConfiguration("anna").revision, 0);
}

TEST_P(StoreTest, EditThatThrowsSomethingElseIsAFaultAndHarmsNoLaterWrite)
{
    Open();
    AddUser("anna");
    const auto fail = [](const AutoRunConfiguration&) -> AutoRunConfiguration {
        throw std::runtime_error("oops");
    };
    const auto failure = Await([&](auto done) { store->EditConfiguration("anna", "user", fail, done); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->reason, WriteFailure::Reason::Internal);
    EXPECT_THAT(log.Text(), HasSubstr("oops"));
    EXPECT_FALSE(Put("anna", SampleConfiguration()));
}

TEST_P(StoreTest, WriteBeyondTheQueueFailsAndTheWaitingWritesAreDone)
{
    options.queueLimit = 1;
    Open();
    AddUser("anna");
    std::promise<void> isBlocked;
    std::promise<void> release;
    auto released = release.get_future();
    std::promise<std::optional<WriteFailure>> first;
    std::promise<std::optional<WriteFailure>> second;
    store->EditConfiguration(
        "anna", "user",
        [&](const AutoRunConfiguration& stored) {
            isBlocked.set_value();
            released.wait();
            return stored;
        },
        [&](const std::optional<WriteFailure>& failure) { first.set_value(failure); });
    isBlocked.get_future().wait();
    store->SetSwitch({1, true, true},
                     [&](const std::optional<WriteFailure>& failure) { second.set_value(failure); });
    EXPECT_EQ(Put("anna", SampleConfiguration())->reason, WriteFailure::Reason::QueueFull);
    release.set_value();
    store->Close();
    EXPECT_FALSE(first.get_future().get());
    EXPECT_FALSE(second.get_future().get());
}

TEST_P(StoreTest, WriteAfterCloseFails)
{
    Open();
    AddUser("anna");
    store->Close();
    EXPECT_EQ(Put("anna", SampleConfiguration())->reason, WriteFailure::Reason::Closing);
}

// A writer that waits is given many writes at once, some of which fail.
TEST_P(StoreTest, FailingWritesAmongManyHarmNoOther)
{
    Open();
    for (int user = 0; user < 10; ++user) {
        AddUser("user" + std::to_string(user));
    }
    std::promise<void> isBlocked;
    std::promise<void> release;
    const auto released = release.get_future().share();
    store->EditConfiguration(
        "user0", "user",
        [&](const AutoRunConfiguration& stored) {
            isBlocked.set_value();
            released.wait();
            return stored;
        },
        [](const std::optional<WriteFailure>&) {});
    isBlocked.get_future().wait();
    std::vector<std::promise<std::optional<WriteFailure>>> answers(100);
    for (int i = 0; i < 100; ++i) {
        const auto done = [&answers, i](const std::optional<WriteFailure>& failure) {
            answers[static_cast<std::size_t>(i)].set_value(failure);
        };
        if (i % 10 == 3) {
            store->EditConfiguration(
                "nobody", "user", [](const AutoRunConfiguration& stored) { return stored; }, done);
        } else if (i % 10 == 7) {
            store->EditConfiguration(
                "user7", "user",
                [](const AutoRunConfiguration&) -> AutoRunConfiguration {
                    throw InvalidInput(InvalidInput::Rule::Limit, "no");
                },
                done);
        } else {
            store->EditConfiguration(
                "user" + std::to_string(i % 10), "user",
                [i](const AutoRunConfiguration&) { return Named(std::to_string(i)); }, done);
        }
    }
    release.set_value();
    for (int i = 0; i < 100; ++i) {
        const auto failure = answers[static_cast<std::size_t>(i)].get_future().get();
        if (i % 10 == 3) {
            EXPECT_EQ(failure->reason, WriteFailure::Reason::StoreFailed);
        } else if (i % 10 == 7) {
            EXPECT_EQ(failure->message, "no");
        } else {
            EXPECT_FALSE(failure) << failure->message;
        }
    }
    for (int user = 0; user < 10; ++user) {
        const StoredConfiguration stored = store->FindConfiguration("user" + std::to_string(user));
        if (user == 3) {
            EXPECT_EQ(stored.revision, 0);
        } else if (user == 7) {
            EXPECT_EQ(stored.revision, 0);
        } else {
            EXPECT_EQ(stored.revision, user == 0 ? 11 : 10);
            EXPECT_EQ(stored.configuration, Named(std::to_string(90 + user)));
        }
    }
}

TEST_P(StoreTest, EveryTextComesBackAsItWas)
{
    using namespace std::string_literals;
    Open();
    const std::vector<std::string> texts = {"'; DROP TABLE app; --",
                                            "\"quoted\" \\ \\x41 $1 %s ?1 {}",
                                            "\0"s,
                                            "a\0b"s,
                                            "\x01"s
                                            "0",
                                            "\x01"s
                                            "1\x01",
                                            "\U0001F600 \u4F60\u597D \u00DF",
                                            "\t\r\n\x7F",
                                            "",
                                            std::string(10000, 'x'),
                                            "\U0001F600"s + std::string(9999, 'y')};
    std::vector<AppRecord> apps;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string& text = texts[i];
        const std::string pin = std::to_string(i) + text.substr(0, 100);
        AddUser(pin);
        const UserRecord record{pin, text, text};
        ASSERT_FALSE(Await([&](auto done) { store->PutUser(record, done); }));
        ASSERT_FALSE(Put(pin, Named(text)));
        ASSERT_FALSE(Await([&](auto done) { store->SetAppKey(pin, text, done); }));
        const TokenRecord token{"hash\0\xFF'\\"s + pin, pin, text, text, 77};
        ASSERT_FALSE(Await([&](auto done) { store->AddToken(token, 0, done); }));
        apps.push_back({text, text, text, text, 1});

        const auto user = store->FindUser(pin);
        ASSERT_TRUE(user);
        EXPECT_EQ(user->pin, pin);
        EXPECT_EQ(user->belongType, text);
        EXPECT_EQ(user->passwordHash, text);
        EXPECT_EQ(store->FindConfiguration(pin).configuration, Named(text));
        EXPECT_EQ(store->ListAppKeys().at(pin), text);
        const auto found = store->FindToken(token.hash);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->hash, token.hash);
        EXPECT_EQ(found->deviceId, text);
        EXPECT_FALSE(store->FindToken("hash"));
    }
    ASSERT_FALSE(Await([&](auto done) { store->ReplaceApps(apps, done); }));
    const auto stored = store->ListApps();
    ASSERT_EQ(stored.size(), texts.size());
    for (std::size_t i = 0; i < texts.size(); ++i) {
        EXPECT_EQ(stored[i].name, texts[i]);
        EXPECT_EQ(stored[i].serviceCode, texts[i]);
    }
}

// A NUL must not let one pin pass for another.
TEST_P(StoreTest, PinWithANulIsAPinOfItsOwn)
{
    using namespace std::string_literals;
    Open();
    AddUser("anna");
    EXPECT_FALSE(store->FindUser("anna\0"s));
    EXPECT_FALSE(store->FindUser("anna\0x"s));
    ASSERT_FALSE(Await([&](auto done) { store->AddLoginFailure("anna\0"s, 100, 0, done); }));
    EXPECT_EQ(store->CountLoginFailures("anna", 0), 0U);
    EXPECT_EQ(store->CountLoginFailures("anna\0"s, 0), 1U);
}

TEST_P(StoreTest, UsersAreListedByTheBytesOfTheirPins)
{
    Open();
    for (const char* pin : {"b", "\u00E4", "B", "a", "_", "1"}) {
        AddUser(pin);
    }
    std::string pins;
    for (const UserRecord& user : store->ListUsers()) {
        pins += user.pin;
    }
    EXPECT_EQ(pins, "1B_ab\u00E4");
}

TEST_P(StoreTest, PasswordEndsTheAccessOfItsUserAlone)
{
    Open();
    AddUser("anna");
    AddUser("bert");
    for (const std::string pin : {"anna", "bert"}) {
        ASSERT_FALSE(Await([&](auto done) { store->AddToken({pin, pin, "m", "d", 900}, 0, done); }));
        ASSERT_FALSE(Await([&](auto done) { store->AddLoginFailure(pin, 100, 0, done); }));
    }
    ASSERT_FALSE(Await([&](auto done) { store->SetPassword("anna", "new", done); }));
    EXPECT_EQ(store->FindUser("anna")->passwordHash, "new");
    EXPECT_FALSE(store->FindToken("anna"));
    EXPECT_EQ(store->CountLoginFailures("anna", 0), 0U);
    EXPECT_TRUE(store->FindToken("bert"));
    EXPECT_EQ(store->CountLoginFailures("bert", 0), 1U);
    ASSERT_FALSE(Await([&](auto done) { store->RemoveToken("bert", done); }));
    EXPECT_FALSE(store->FindToken("bert"));
}

TEST_P(StoreTest, SwitchesAreListedByNumber)
{
    Open();
    ASSERT_FALSE(Await([&](auto done) { store->SetSwitch({8, true, false}, done); }));
    ASSERT_FALSE(Await([&](auto done) { store->SetSwitch({3, false, false}, done); }));
    ASSERT_FALSE(Await([&](auto done) { store->SetSwitch({3, false, true}, done); }));
    const auto switches = store->ListSwitches();
    ASSERT_EQ(switches.size(), 2U);
    EXPECT_EQ(switches[0].number, 3);
    EXPECT_FALSE(switches[0].valid);
    EXPECT_TRUE(switches[0].display);
    EXPECT_EQ(switches[1].number, 8);
    EXPECT_TRUE(switches[1].valid);
    EXPECT_FALSE(switches[1].display);
}

TEST_P(StoreTest, KeySetThroughAnotherStoreIsNoticed)
{
    Open();
    AppKeyRing ring;
    const AppKeyWatcher watcher(*store, ring, log.Logger());
    const auto other = database->Open(options, log.Logger());
    ASSERT_FALSE(Await([&](auto done) { other->SetAppKey("a", "1", done); }));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (ring.FindSecret("a") != "1" && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
    }
    EXPECT_EQ(ring.FindSecret("a"), "1");
}

TEST_P(StoreTest, DatabaseThatMustExistIsNotMade)
{
    options.mustExist = true;
    EXPECT_THROW(Open(), StoreError);
    EXPECT_THROW(Open(), StoreError) << "the first one made it";
    options.mustExist = false;
    Open();
    options.mustExist = true;
    EXPECT_NO_THROW(Open());
}

} // namespace TLGateway
