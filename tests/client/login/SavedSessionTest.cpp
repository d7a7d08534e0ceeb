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
    void Save(const Session& session)
    {
        bool saved = false;
        m_saved.Save(session, [&saved](bool ok) { saved = ok; });
        m_store.Answer();
        ASSERT_TRUE(saved);
    }
    Session Load()
    {
        std::optional<Session> loaded;
        m_saved.Load([this, &loaded](const Session& session, LoginProblem::Kind problem) {
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
    SavedSession m_saved{&m_store, [this] { return m_now; }};
    LoginProblem::Kind m_problem = LoginProblem::Kind::None;
};

TEST_F(SavedSessionTest, WithoutOneThereIsNothingAndNoProblem)
{
    EXPECT_FALSE(m_saved.HasRecord());
    EXPECT_TRUE(Load().IsEmpty());
    EXPECT_EQ(m_problem, LoginProblem::Kind::None);
}

TEST_F(SavedSessionTest, SavedSessionComesBackWhole)
{
    Save(Demo());
    EXPECT_TRUE(m_saved.HasRecord());
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
    Save(session);
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
    Save(Demo());
    m_now = m_now.addDays(30);
    EXPECT_TRUE(Load().IsEmpty());
    EXPECT_EQ(m_problem, LoginProblem::Kind::SessionExpired);
    EXPECT_FALSE(m_saved.HasRecord());
    EXPECT_TRUE(m_store.secrets.isEmpty());
}

TEST_F(SavedSessionTest, SessionWithoutExpiryDoesNotExpire)
{
    Session session = Demo();
    session.expiresAt = QDateTime();
    Save(session);
    m_now = m_now.addYears(5);
    EXPECT_EQ(Load().accessToken, QStringLiteral("token"));
}

TEST_F(SavedSessionTest, TokenThatIsGoneFromTheKeyStoreEndsTheSession)
{
    Save(Demo());
    m_store.secrets.clear();
    EXPECT_TRUE(Load().IsEmpty());
    EXPECT_EQ(m_problem, LoginProblem::Kind::SessionRefused);
    EXPECT_FALSE(m_saved.HasRecord());
}

TEST_F(SavedSessionTest, KeyStoreThatRefusesLeavesNothingSaved)
{
    m_store.refusesToWrite = true;
    bool saved = true;
    m_saved.Save(Demo(), [&saved](bool ok) { saved = ok; });
    m_store.Answer();
    EXPECT_FALSE(saved);
    EXPECT_FALSE(m_saved.HasRecord());
}

TEST_F(SavedSessionTest, RecordIsNotThereBeforeTheTokenIs)
{
    m_saved.Save(Demo(), [](bool) {});
    EXPECT_FALSE(m_saved.HasRecord());
    m_store.Answer();
    EXPECT_TRUE(m_saved.HasRecord());
}

TEST_F(SavedSessionTest, ForgettingTakesEffectBeforeTheKeyStoreAnswers)
{
    Save(Demo());
    bool forgotten = false;
    m_saved.Forget([&forgotten] { forgotten = true; });
    EXPECT_FALSE(m_saved.HasRecord());
    EXPECT_FALSE(forgotten);
    m_store.Answer();
    EXPECT_TRUE(forgotten);
    EXPECT_TRUE(m_store.secrets.isEmpty());
}

TEST_F(SavedSessionTest, AnotherDeviceIdHasAnotherToken)
{
    Save(Demo());
    TLGlobalData::Instance()->SetUUID(QStringLiteral("other"));
    EXPECT_TRUE(Load().IsEmpty());
    EXPECT_EQ(m_store.secrets.size(), 1);
}

TEST_F(SavedSessionTest, AnswerThatComesAfterTheEndIsHarmless)
{
    Save(Demo());
    auto saved = std::make_unique<SavedSession>(&m_store, [this] { return m_now; });
    bool answered = false;
    saved->Load([&answered](const Session&, LoginProblem::Kind) { answered = true; });
    saved.reset();
    m_store.Answer();
    EXPECT_FALSE(answered);
}
