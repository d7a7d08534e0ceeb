#include "ClientEnd.h"

#include <gtest/gtest.h>

TEST(ClientEndTest, FirstDecisionCounts)
{
    ClientEnd end;
    end.Decide(EndKind::LogOut);
    end.Decide(EndKind::Quit);
    EXPECT_EQ(end.GetKind(), EndKind::LogOut);
}

TEST(ClientEndTest, EndOfTheSystemsSessionOverridesARestartOnly)
{
    for (const EndKind kind : {EndKind::Quit, EndKind::LogOut, EndKind::Refused}) {
        ClientEnd end;
        end.Decide(kind);
        end.HandleSystemEnd();
        EXPECT_EQ(end.GetKind(), kind) << "the user chose a moment ago";
    }
    ClientEnd restart;
    restart.Decide(EndKind::Restart);
    restart.HandleSystemEnd();
    EXPECT_EQ(restart.GetKind(), EndKind::SystemEnd);
    restart.Decide(EndKind::Quit);
    EXPECT_EQ(restart.GetKind(), EndKind::SystemEnd);
}

TEST(ClientEndTest, AfterTheTakeDownTheKindStays)
{
    ClientEnd end;
    end.Decide(EndKind::Restart);
    end.Close();
    end.HandleSystemEnd();
    EXPECT_EQ(end.GetKind(), EndKind::Restart);
    EXPECT_FALSE(end.WantsSuccessor()) << "it would start into the end of the session";
}

TEST(ClientEndTest, NoSuccessorStartsWhileTheSystemEndsTheSession)
{
    for (const EndKind kind : {EndKind::LogOut, EndKind::Refused, EndKind::Restart}) {
        ClientEnd end;
        end.Decide(kind);
        EXPECT_TRUE(end.WantsSuccessor());
        end.HandleSystemEnd();
        EXPECT_FALSE(end.WantsSuccessor());
    }
    ClientEnd quit;
    quit.Decide(EndKind::Quit);
    EXPECT_FALSE(quit.WantsSuccessor());
}

TEST(ClientEndTest, RestartWithoutTabsIsAQuitForThem)
{
    ClientEnd end;
    end.PrepareRestart(false, QString());
    end.Decide(EndKind::Restart);
    EXPECT_EQ(end.GetKindForTabs(), EndKind::Quit);
    EXPECT_EQ(end.GetKind(), EndKind::Restart);

    ClientEnd withTabs;
    withTabs.PrepareRestart(true, QStringLiteral("tl://browser/open?url=a"));
    withTabs.Decide(EndKind::Restart);
    EXPECT_EQ(withTabs.GetKindForTabs(), EndKind::Restart);
    EXPECT_EQ(withTabs.GetIgnoredUrl(), QStringLiteral("tl://browser/open?url=a"));
    EXPECT_TRUE(withTabs.OpensTabsAgain());
}

TEST(ClientEndTest, TheModulesQuitHookIsSkippedWhereItWouldClearWhatIsNeeded)
{
    for (const EndKind kind : {EndKind::SystemEnd, EndKind::Refused}) {
        ClientEnd end;
        end.Decide(kind);
        EXPECT_TRUE(end.SkipsMainFrameQuit());
    }
    for (const EndKind kind : {EndKind::Quit, EndKind::LogOut, EndKind::Restart}) {
        ClientEnd end;
        end.Decide(kind);
        EXPECT_FALSE(end.SkipsMainFrameQuit());
    }
}

TEST(ClientEndTest, LogOutAndRefusalEndTheSession)
{
    for (const EndKind kind :
         {EndKind::Quit, EndKind::LogOut, EndKind::Refused, EndKind::Restart, EndKind::SystemEnd}) {
        ClientEnd end;
        end.Decide(kind);
        EXPECT_EQ(end.EndsSession(), kind == EndKind::LogOut || kind == EndKind::Refused);
    }
}
