#include "WebEngineDownloadTurn.h"

#include <gtest/gtest.h>

namespace {

/// A page that wants to save files, none of which is really fetched.
class WebEngineDownloadTurnTest : public ::testing::Test
{
protected:
    bool Want(const QString& name)
    {
        return m_turn.Begin(QUrl(QStringLiteral("http://shop.example/") + name), name);
    }

    QStringList m_fetched;
    int m_asked = 0;
    WebEngineDownloadTurn m_turn{[this](const QUrl&, const QString& name) { m_fetched << name; },
                                 [this] { ++m_asked; }};
};

} // namespace

TEST_F(WebEngineDownloadTurnTest, FilesOneAfterAnotherNeedNoAnswerAboutSeveral)
{
    for (const char* const name : {"a", "b", "c"}) {
        EXPECT_TRUE(Want(QString::fromLatin1(name)));
        m_turn.End(true);
    }
    EXPECT_EQ(m_asked, 0);
}

TEST_F(WebEngineDownloadTurnTest, ASecondFileAtTheSameTimeWaitsForAnAnswerAboutSeveral)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    EXPECT_FALSE(Want(QStringLiteral("b")));
    EXPECT_FALSE(Want(QStringLiteral("c")));
    EXPECT_EQ(m_asked, 1) << "asked once about all of them";
    m_turn.End(true);
    EXPECT_TRUE(m_fetched.isEmpty());
}

TEST_F(WebEngineDownloadTurnTest, AllowedFilesAreFetchedOneAtATime)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    EXPECT_FALSE(Want(QStringLiteral("b")));
    EXPECT_FALSE(Want(QStringLiteral("c")));
    m_turn.End(true);
    m_turn.Answer(true);
    EXPECT_EQ(m_fetched, QStringList{QStringLiteral("b")});
    EXPECT_TRUE(Want(QStringLiteral("b"))); // as the engine asks again for what was fetched
    m_turn.End(true);
    EXPECT_EQ(m_fetched, QStringList({QStringLiteral("b"), QStringLiteral("c")}));
}

TEST_F(WebEngineDownloadTurnTest, AllowedFilesWaitForTheOneThatIsBeingAskedAbout)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    EXPECT_FALSE(Want(QStringLiteral("b")));
    m_turn.Answer(true);
    EXPECT_TRUE(m_fetched.isEmpty());
    m_turn.End(true);
    EXPECT_EQ(m_fetched, QStringList{QStringLiteral("b")});
}

TEST_F(WebEngineDownloadTurnTest, ANoToOneEndsThoseThatWereAllowed)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    EXPECT_FALSE(Want(QStringLiteral("b")));
    m_turn.Answer(true);
    m_turn.End(false);
    EXPECT_TRUE(m_fetched.isEmpty());
    EXPECT_FALSE(Want(QStringLiteral("c")));
    EXPECT_EQ(m_asked, 2);
}

TEST_F(WebEngineDownloadTurnTest, AfterANoNothingIsAskedUntilTheUserDoesSomething)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    m_turn.End(false);
    EXPECT_FALSE(Want(QStringLiteral("a")));
    m_turn.NoteInput();
    EXPECT_TRUE(Want(QStringLiteral("a")));
}

TEST_F(WebEngineDownloadTurnTest, ARefusalOfSeveralHoldsUntilTheUserDoesSomething)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    EXPECT_FALSE(Want(QStringLiteral("b")));
    m_turn.Answer(false);
    EXPECT_FALSE(Want(QStringLiteral("c")));
    EXPECT_EQ(m_asked, 1);
    m_turn.NoteInput();
    EXPECT_FALSE(Want(QStringLiteral("d"))) << "the first is still being asked about";
    EXPECT_EQ(m_asked, 2);
    m_turn.End(true);
    EXPECT_TRUE(m_fetched.isEmpty()) << "what was refused comes back";
}

TEST_F(WebEngineDownloadTurnTest, InputWhileSeveralAreAskedAboutAsksNoSecondTime)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    EXPECT_FALSE(Want(QStringLiteral("b")));
    m_turn.NoteInput();
    EXPECT_FALSE(Want(QStringLiteral("c")));
    EXPECT_EQ(m_asked, 1);
}

TEST_F(WebEngineDownloadTurnTest, AnotherPageStartsWithoutTheChoicesForTheOneBefore)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    m_turn.End(false);
    EXPECT_FALSE(Want(QStringLiteral("b")));
    m_turn.Answer(true);
    EXPECT_EQ(m_fetched, QStringList{QStringLiteral("b")});
    m_turn.Reset();
    EXPECT_TRUE(Want(QStringLiteral("c")));
    EXPECT_FALSE(Want(QStringLiteral("d")));
    EXPECT_EQ(m_asked, 2);
}

TEST_F(WebEngineDownloadTurnTest, AnInsistentPageIsRememberedWithLimits)
{
    EXPECT_TRUE(Want(QStringLiteral("a")));
    for (int i = 0; i < 100; ++i) {
        EXPECT_FALSE(Want(QString::number(i)));
        EXPECT_FALSE(Want(QString::number(i))) << "the same file is put aside once";
    }
    m_turn.End(true);
    m_turn.Answer(true);
    for (int i = 0; i < 100; ++i) {
        EXPECT_TRUE(Want(QStringLiteral("fetched")));
        m_turn.End(true);
    }
    EXPECT_EQ(m_fetched.size(), 20);
    EXPECT_EQ(m_fetched.removeDuplicates(), 0);
}
