#include "FakeKeyStore.h"

#include "login/SavedSession.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

class SavedSessionTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(VXSettingManager::Instance()->Open(m_folder.filePath(QStringLiteral("settings.sqlite"))));
        TLGlobalData::Instance()->SetUUID(QStringLiteral("device"));
    }
    void TearDown() override
    {
        VXSettingManager::Instance()->Close();
        TLGlobalData::Instance()->SetUUID(QString());
    }

    Session Demo() const
    {
        return {QStringLiteral("demo"), QStringLiteral("merchant"), QStringLiteral("token"),
                m_now.addDays(30)};
    }
    void Keep(const Session& session)
    {
        bool kept = false;
        m_kept.Keep(session, [&kept](bool ok) { kept = ok; });
        m_store.Answer();
        ASSERT_TRUE(kept);
    }
    Session Load()
    {
        std::optional<Session> loaded;
        m_kept.Load([this, &loaded](const Session& session, LoginProblem::Kind problem) {
            EXPECT_FALSE(loaded.has_value());
            loaded = session;
            m_problem = problem;
        });
        m_store.Answer();
        EXPECT_TRUE(loaded.has_value());
        return loaded.value_or(Session());
    }

    QTemporaryDir m_folder;
    FakeKeyStore m_store;
    QDateTime m_now{QDate(2026, 11, 21), QTime(8, 0), Qt::UTC};
    SavedSession m_kept{&m_store, [this] { return m_now; }};
    LoginProblem::Kind m_problem = LoginProblem::Kind::None;
};

TEST_F(SavedSessionTest, WithoutOneThereIsNothingAndNoProblem)
{
    EXPECT_FALSE(m_kept.HasRecord());
    EXPECT_TRUE(Load().IsEmpty());
    EXPECT_EQ(m_problem, LoginProblem::Kind::None);
}

TEST_F(SavedSessionTest, KeptSessionComesBackWhole)
{
    Keep(Demo());
    EXPECT_TRUE(m_kept.HasRecord());
    const Session session = Load();
    EXPECT_EQ(session.pin, QStringLiteral("demo"));
    EXPECT_EQ(session.belongType, QStringLiteral("merchant"));
    EXPECT_EQ(session.accessToken, QStringLiteral("token"));
    EXPECT_EQ(session.expiresAt, m_now.addDays(30));
}

TEST_F(SavedSessionTest, TokenStandsInTheKeyStoreOnly)
{
    Session session = Demo();
    session.accessToken = QStringLiteral("a-token-to-look-for");
    Keep(session);
    ASSERT_TRUE(VXSettingManager::Instance()->Flush());
    VXSettingManager::Instance()->Close();
    for (const QFileInfo& file : QDir(m_folder.path()).entryInfoList(QDir::Files)) {
        QFile content(file.filePath());
        ASSERT_TRUE(content.open(QIODevice::ReadOnly));
        EXPECT_FALSE(content.readAll().contains("a-token-to-look-for")) << file.fileName().toStdString();
    }
    EXPECT_EQ(m_store.secrets.values(), QStringList{QStringLiteral("a-token-to-look-for")});
}

TEST_F(SavedSessionTest, ExpiredOneIsForgottenAndSaidToBe)
{
    Keep(Demo());
    m_now = m_now.addDays(30);
    EXPECT_TRUE(Load().IsEmpty());
    EXPECT_EQ(m_problem, LoginProblem::Kind::SessionExpired);
    EXPECT_FALSE(m_kept.HasRecord());
    EXPECT_TRUE(m_store.secrets.isEmpty());
}

TEST_F(SavedSessionTest, SessionWithoutExpiryDoesNotExpire)
{
    Session session = Demo();
    session.expiresAt = QDateTime();
    Keep(session);
    m_now = m_now.addYears(5);
    EXPECT_EQ(Load().accessToken, QStringLiteral("token"));
}

TEST_F(SavedSessionTest, TokenThatIsGoneFromTheKeyStoreEndsTheSession)
{
    Keep(Demo());
    m_store.secrets.clear();
    EXPECT_TRUE(Load().IsEmpty());
    EXPECT_EQ(m_problem, LoginProblem::Kind::SessionRefused);
    EXPECT_FALSE(m_kept.HasRecord());
}

TEST_F(SavedSessionTest, KeyStoreThatRefusesLeavesNothingKept)
{
    m_store.refusesToWrite = true;
    bool kept = true;
    m_kept.Keep(Demo(), [&kept](bool ok) { kept = ok; });
    m_store.Answer();
    EXPECT_FALSE(kept);
    EXPECT_FALSE(m_kept.HasRecord());
}

TEST_F(SavedSessionTest, RecordIsNotThereBeforeTheTokenIs)
{
    m_kept.Keep(Demo(), [](bool) {});
    EXPECT_FALSE(m_kept.HasRecord());
    m_store.Answer();
    EXPECT_TRUE(m_kept.HasRecord());
}

TEST_F(SavedSessionTest, ForgettingTakesEffectBeforeTheKeyStoreAnswers)
{
    Keep(Demo());
    bool forgotten = false;
    m_kept.Forget([&forgotten] { forgotten = true; });
    EXPECT_FALSE(m_kept.HasRecord());
    EXPECT_FALSE(forgotten);
    m_store.Answer();
    EXPECT_TRUE(forgotten);
    EXPECT_TRUE(m_store.secrets.isEmpty());
}

TEST_F(SavedSessionTest, AnotherDeviceIdHasAnotherToken)
{
    Keep(Demo());
    TLGlobalData::Instance()->SetUUID(QStringLiteral("other"));
    EXPECT_TRUE(Load().IsEmpty());
    EXPECT_EQ(m_store.secrets.size(), 1);
}

TEST_F(SavedSessionTest, AnswerThatComesAfterTheEndIsHarmless)
{
    Keep(Demo());
    auto kept = std::make_unique<SavedSession>(&m_store, [this] { return m_now; });
    bool answered = false;
    kept->Load([&answered](const Session&, LoginProblem::Kind) { answered = true; });
    kept.reset();
    m_store.Answer();
    EXPECT_FALSE(answered);
}
