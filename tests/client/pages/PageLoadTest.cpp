#include "pages/PageLoad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using Effect = PageLoad::Effect;
using Effects = PageLoad::Effects;
using Stage = PageLoad::Stage;

const QUrl Orders(QStringLiteral("http://shop.example/orders"));
const QUrl Place(QStringLiteral("http://shop.example/orders#third"));
const QUrl OtherPlace(QStringLiteral("http://shop.example/orders#fourth"));
const QUrl Goods(QStringLiteral("http://shop.example/goods"));
const QUrl Prices(QStringLiteral("http://shop.example/prices"));

/// For what only leads to the step under test.
void Ignore(const Effects& effects)
{
    Q_UNUSED(effects)
}

/// Loads an address to its end, as the engine tells it.
void Show(PageLoad* load, const QUrl& url)
{
    Ignore(load->Ask(url));
    Ignore(load->HandleStarted());
    Ignore(load->HandleAddress(url));
    Ignore(load->HandleFinished(true));
}

/// Ends at the engine's error page, whose address is never told.
void Fail(PageLoad* load, const QUrl& url)
{
    Ignore(load->Ask(url));
    Ignore(load->HandleStarted());
    Ignore(load->HandleFinished(false));
    Ignore(load->HandleReason(load->GetNumber(), true));
}

/// The user, who has the orders, asks for the goods.
PageLoad Reach(Stage stage)
{
    PageLoad load;
    Show(&load, Orders);
    if (stage == Stage::Held) {
        Ignore(load.HandleStay());
    }
    if (stage != Stage::Idle) {
        Ignore(load.Ask(Goods));
    }
    if (stage == Stage::Dropped) {
        Ignore(load.HandleStay());
    }
    if (stage == Stage::Running || stage == Stage::Ending) {
        Ignore(load.HandleStarted());
    }
    if (stage == Stage::Ending) {
        Ignore(load.HandleFinished(false));
    }
    if (stage == Stage::Over) {
        load.End();
    }
    return load;
}

/// An event, the stages that it leads to from each of these, and what follows there.
struct Event
{
    struct Step
    {
        Stage to;
        Effects effects;
    };

    const char* name;
    Effects (*happen)(PageLoad* load);
    Step fromIdle;
    Step fromAsked;
    Step fromDropped;
    Step fromHeld;
    Step fromRunning;
    Step fromEnding;
};

const Effects BackToPageBefore{Effect::TellPageBefore, Effect::TellHistory, Effect::TellFinishedNotOk};
const Effects NextLoad{Effect::TellFinishedNotOk, Effect::TellStarted};
const Effects NextLoadGiven = NextLoad + Effects{Effect::GiveToEngine};
const Effects OtherAddress{Effect::TellAddress, Effect::TellHistory};
const Effects Died = BackToPageBefore + Effects{Effect::TellRendererDied};

// Where an event does not belong to the stage, it leaves the stage as it is, and nothing follows.
const std::vector<Event> Events = {
    {"Ask",
     [](PageLoad* load) { return load->Ask(Prices); },
     {Stage::Asked, {Effect::TellStarted, Effect::GiveToEngine}},
     {Stage::Asked, NextLoadGiven},
     {Stage::Held, NextLoad},
     {Stage::Held, NextLoad},
     {Stage::Asked, NextLoadGiven},
     {Stage::Asked, NextLoadGiven}},
    {"Withdraw",
     [](PageLoad* load) { return load->Withdraw(); },
     {Stage::Idle, {}},
     {Stage::Idle, BackToPageBefore},
     {Stage::Idle, BackToPageBefore},
     {Stage::Idle, BackToPageBefore},
     {Stage::Running, {}},
     {Stage::Ending, {}}},
    {"Started",
     [](PageLoad* load) { return load->HandleStarted(); },
     {Stage::Running, {Effect::TellStarted}},
     {Stage::Running, {}},
     {Stage::Running, {}},
     {Stage::Running, {}},
     {Stage::Running, NextLoad},
     {Stage::Running, NextLoad}},
    {"FinishedOk",
     [](PageLoad* load) { return load->HandleFinished(true); },
     {Stage::Idle, {}},
     {Stage::Asked, {}},
     {Stage::Dropped, {}},
     {Stage::Held, {}},
     {Stage::Idle, {Effect::TellPageBefore, Effect::TellHistory, Effect::TellFinishedOk}},
     {Stage::Idle, {Effect::TellPageBefore, Effect::TellHistory, Effect::TellFinishedOk}}},
    {"FinishedNotOk",
     [](PageLoad* load) { return load->HandleFinished(false); },
     {Stage::Idle, {}},
     {Stage::Asked, {}},
     {Stage::Dropped, {}},
     {Stage::Held, {}},
     {Stage::Ending, {Effect::AskReason}},
     {Stage::Ending, {}}},
    {"Address",
     [](PageLoad* load) { return load->HandleAddress(Place); },
     {Stage::Idle, OtherAddress},
     {Stage::Asked, {Effect::TellHistory}},
     {Stage::Dropped, {Effect::TellHistory}},
     {Stage::Held, {Effect::TellHistory}},
     {Stage::Running, OtherAddress},
     {Stage::Ending, OtherAddress}},
    {"ReasonPage",
     [](PageLoad* load) { return load->HandleReason(load->GetNumber(), false); },
     {Stage::Idle, {}},
     {Stage::Asked, {}},
     {Stage::Dropped, {}},
     {Stage::Held, {}},
     {Stage::Running, {}},
     {Stage::Idle, BackToPageBefore}},
    {"ReasonErrorPage",
     [](PageLoad* load) { return load->HandleReason(load->GetNumber(), true); },
     {Stage::Idle, {}},
     {Stage::Asked, {}},
     {Stage::Dropped, {}},
     {Stage::Held, {}},
     {Stage::Running, {}},
     {Stage::Idle, {Effect::TellFailed, Effect::TellHistory, Effect::TellFinishedNotOk}}},
    {"Stay",
     [](PageLoad* load) { return load->HandleStay(); },
     {Stage::Idle, {}},
     {Stage::Dropped, {}},
     {Stage::Dropped, {}},
     {Stage::Held, {}},
     {Stage::Running, {}},
     {Stage::Ending, {}}},
    {"StayNoted",
     [](PageLoad* load) { return load->HandleStayNoted(); },
     {Stage::Idle, {}},
     {Stage::Asked, {}},
     {Stage::Idle, BackToPageBefore},
     {Stage::Asked, {Effect::GiveToEngine}},
     {Stage::Running, {}},
     {Stage::Ending, {}}},
    {"RendererDied",
     [](PageLoad* load) { return load->HandleRendererDied(); },
     {Stage::Idle, {Effect::TellRendererDied}},
     {Stage::Idle, Died},
     {Stage::Idle, Died},
     {Stage::Idle, Died},
     {Stage::Idle, Died},
     {Stage::Idle, Died}},
    {"Progress",
     [](PageLoad* load) { return load->HandleProgress(50); },
     {Stage::Idle, {}},
     {Stage::Asked, {}},
     {Stage::Dropped, {}},
     {Stage::Held, {}},
     {Stage::Running, {}},
     {Stage::Ending, {}}},
    {"Content",
     [](PageLoad* load) { return load->HandleContent(load->GetNumber()); },
     {Stage::Idle, {}},
     {Stage::Asked, {}},
     {Stage::Dropped, {}},
     {Stage::Held, {}},
     {Stage::Running, {}},
     {Stage::Ending, {}}},
};

class PageLoadStepTest : public ::testing::TestWithParam<Event>
{
protected:
    static void Expect(Stage from, const Event::Step& step)
    {
        PageLoad load = Reach(from);
        ASSERT_EQ(load.GetStage(), from);
        EXPECT_EQ(GetParam().happen(&load), step.effects);
        EXPECT_EQ(load.GetStage(), step.to);
    }
};

class PageLoadTest : public ::testing::Test
{
protected:
    PageLoad m_load;
};

} // namespace

// How a failed test names them.
static void PrintTo(Effect effect, std::ostream* out)
{
    static const char* const names[] = {"GiveToEngine",   "AskReason",      "LookForContent",
                                        "TellStarted",    "TellFinishedOk", "TellFinishedNotOk",
                                        "TellFailed",     "TellContent",    "TellAddress",
                                        "TellPageBefore", "TellHistory",    "TellRendererDied"};
    *out << names[int(effect)];
}

TEST_P(PageLoadStepTest, FromIdle)
{
    Expect(Stage::Idle, GetParam().fromIdle);
}

TEST_P(PageLoadStepTest, FromAsked)
{
    Expect(Stage::Asked, GetParam().fromAsked);
}

TEST_P(PageLoadStepTest, FromDropped)
{
    Expect(Stage::Dropped, GetParam().fromDropped);
}

TEST_P(PageLoadStepTest, FromHeld)
{
    Expect(Stage::Held, GetParam().fromHeld);
}

TEST_P(PageLoadStepTest, FromRunning)
{
    Expect(Stage::Running, GetParam().fromRunning);
}

TEST_P(PageLoadStepTest, FromEnding)
{
    Expect(Stage::Ending, GetParam().fromEnding);
}

TEST_P(PageLoadStepTest, NothingFollowsOnceThePageGoes)
{
    Expect(Stage::Over, {Stage::Over, {}});
}

INSTANTIATE_TEST_SUITE_P(Events, PageLoadStepTest, ::testing::ValuesIn(Events),
                         [](const auto& event) { return std::string(event.param.name); });

TEST_F(PageLoadTest, APageThatGoesLoadsNoMore)
{
    for (const Stage stage :
         {Stage::Idle, Stage::Asked, Stage::Dropped, Stage::Held, Stage::Running, Stage::Ending}) {
        PageLoad load = Reach(stage);
        EXPECT_EQ(load.IsLoading(), stage != Stage::Idle);
        load.End();
        EXPECT_EQ(load.GetStage(), Stage::Over);
        EXPECT_FALSE(load.IsLoading());
    }
}

TEST_F(PageLoadTest, AFreshPageIsIdleAndHasNoAddress)
{
    EXPECT_EQ(m_load.GetStage(), Stage::Idle);
    EXPECT_TRUE(m_load.GetAsked().isEmpty());
    EXPECT_TRUE(m_load.GetShown().isEmpty());
}

TEST_F(PageLoadTest, WhatWasAskedForBecomesWhatIsShown)
{
    Show(&m_load, Orders);
    Ignore(m_load.Ask(Goods));
    Ignore(m_load.HandleStarted());
    EXPECT_EQ(m_load.GetAsked(), Goods);
    EXPECT_EQ(m_load.GetShown(), Orders);
    EXPECT_THAT(m_load.HandleAddress(Goods), ElementsAre(Effect::TellAddress, Effect::TellHistory));
    EXPECT_TRUE(m_load.GetAsked().isEmpty());
    EXPECT_EQ(m_load.GetShown(), Goods);
    EXPECT_THAT(m_load.HandleFinished(true), ElementsAre(Effect::TellHistory, Effect::TellFinishedOk));
}

TEST_F(PageLoadTest, TheFirstPageHasNoneBeforeIt)
{
    Ignore(m_load.Ask(Goods));
    EXPECT_THAT(m_load.Withdraw(), ElementsAre(Effect::TellHistory, Effect::TellFinishedNotOk));
    EXPECT_TRUE(m_load.GetAsked().isEmpty());
}

TEST_F(PageLoadTest, APlaceInTheSameDocumentIsThereAtOnce)
{
    const std::vector<Effect> expected{Effect::TellAddress, Effect::TellHistory, Effect::TellFinishedOk};
    Show(&m_load, Orders);
    Ignore(m_load.Ask(Place));
    EXPECT_THAT(m_load.HandleAddress(Place), testing::ElementsAreArray(expected));
    EXPECT_EQ(m_load.GetStage(), Stage::Idle);
    // And from there to the next.
    Ignore(m_load.Ask(OtherPlace));
    EXPECT_THAT(m_load.HandleAddress(OtherPlace), testing::ElementsAreArray(expected));
}

TEST_F(PageLoadTest, APlaceIsThereAtOnceWhereTheUserStays)
{
    const std::vector<Effect> expected{Effect::TellAddress, Effect::TellHistory, Effect::TellFinishedOk};
    Show(&m_load, Orders);
    Ignore(m_load.Ask(Place));
    Ignore(m_load.HandleStay());
    EXPECT_THAT(m_load.HandleAddress(Place), testing::ElementsAreArray(expected));
    Ignore(m_load.Ask(OtherPlace));
    ASSERT_EQ(m_load.GetStage(), Stage::Held);
    EXPECT_THAT(m_load.HandleAddress(OtherPlace), testing::ElementsAreArray(expected));
}

TEST_F(PageLoadTest, APlaceThatTheEngineLoadsIsThereWhenTheLoadEnds)
{
    Show(&m_load, Orders);
    Ignore(m_load.Ask(Place));
    Ignore(m_load.HandleStarted());
    EXPECT_THAT(m_load.HandleAddress(Place), ElementsAre(Effect::TellAddress, Effect::TellHistory));
    EXPECT_EQ(m_load.GetStage(), Stage::Running);
}

TEST_F(PageLoadTest, APlaceThatIsThereWhileTheReasonIsAskedForEndsNoLoad)
{
    Show(&m_load, Orders);
    Ignore(m_load.Ask(Place));
    Ignore(m_load.HandleStarted());
    Ignore(m_load.HandleFinished(false));
    EXPECT_THAT(m_load.HandleAddress(Place), ElementsAre(Effect::TellAddress, Effect::TellHistory));
    EXPECT_EQ(m_load.GetStage(), Stage::Ending);
}

TEST_F(PageLoadTest, APlaceWithoutANameEndsNoLoadWhereThereIsNone)
{
    Show(&m_load, Orders);
    EXPECT_THAT(m_load.HandleAddress(QUrl(Orders.toString() + QLatin1Char('#'))),
                ElementsAre(Effect::TellAddress, Effect::TellHistory));
}

TEST_F(PageLoadTest, APlaceMayBeSpelledInAnotherWay)
{
    Show(&m_load, Orders);
    Ignore(m_load.Ask(QUrl(Orders.toString() + QStringLiteral("#ü {1}"))));
    Ignore(m_load.HandleAddress(QUrl(Orders.toString() + QStringLiteral("#%C3%BC%20%7B1%7D"))));
    EXPECT_EQ(m_load.GetStage(), Stage::Idle);
}

TEST_F(PageLoadTest, AnotherPlaceThanTheOneAskedForEndsNoLoad)
{
    Show(&m_load, Orders);
    Ignore(m_load.Ask(Place));
    EXPECT_THAT(m_load.HandleAddress(OtherPlace), ElementsAre(Effect::TellHistory));
    EXPECT_EQ(m_load.GetStage(), Stage::Asked);
    EXPECT_EQ(m_load.GetAsked(), Place);
}

TEST_F(PageLoadTest, ThePlaceInAnotherDocumentEndsNoLoad)
{
    Show(&m_load, Goods);
    Ignore(m_load.Ask(Place));
    Ignore(m_load.HandleAddress(Place));
    EXPECT_EQ(m_load.GetStage(), Stage::Asked);
}

TEST_F(PageLoadTest, EachLoadHasANumberOfItsOwn)
{
    const int first = m_load.GetNumber();
    Ignore(m_load.Ask(Orders));
    const int second = m_load.GetNumber();
    EXPECT_NE(first, second);
    Ignore(m_load.HandleStarted());
    EXPECT_EQ(m_load.GetNumber(), second) << "it is the load that was asked for";
    Ignore(m_load.HandleStarted());
    EXPECT_NE(m_load.GetNumber(), second) << "the page began this one by itself";
}

TEST_F(PageLoadTest, AnAnswerAboutAnEarlierLoadIsIgnored)
{
    Ignore(m_load.Ask(Orders));
    Ignore(m_load.HandleStarted());
    Ignore(m_load.HandleFinished(false));
    const int earlier = m_load.GetNumber();
    Ignore(m_load.HandleStarted());
    Ignore(m_load.HandleFinished(false));
    EXPECT_THAT(m_load.HandleReason(earlier, true), IsEmpty());
    EXPECT_EQ(m_load.GetStage(), Stage::Ending);
}

TEST_F(PageLoadTest, AFailedPageLeavesNoneBeforeIt)
{
    Show(&m_load, Orders);
    Fail(&m_load, Goods);
    EXPECT_EQ(m_load.GetStage(), Stage::Idle);
    EXPECT_TRUE(m_load.GetAsked().isEmpty());
}

TEST_F(PageLoadTest, AfterAFailureContentIsToldOnceAndAsSoonAsItIsThere)
{
    Fail(&m_load, Goods);
    Ignore(m_load.Ask(Orders));
    Ignore(m_load.HandleStarted());
    Ignore(m_load.HandleAddress(Orders));
    EXPECT_THAT(m_load.HandleProgress(40), ElementsAre(Effect::LookForContent));
    EXPECT_THAT(m_load.HandleContent(m_load.GetNumber()), ElementsAre(Effect::TellContent));
    EXPECT_THAT(m_load.HandleProgress(60), IsEmpty());
    EXPECT_THAT(m_load.HandleContent(m_load.GetNumber()), IsEmpty());
}

TEST_F(PageLoadTest, AfterAFailureTheEndOfALoadAsksByItself)
{
    Fail(&m_load, Goods);
    Ignore(m_load.Ask(Orders));
    Ignore(m_load.HandleStarted());
    EXPECT_THAT(m_load.HandleProgress(100), IsEmpty());
}

TEST_F(PageLoadTest, ContentOfThePageBeforeIsNoneOfTheOneAskedFor)
{
    Fail(&m_load, Goods);
    Ignore(m_load.Ask(Orders));
    Ignore(m_load.HandleStarted());
    EXPECT_THAT(m_load.HandleContent(m_load.GetNumber()), IsEmpty());
}

TEST_F(PageLoadTest, ContentOfAnEarlierLoadIsIgnored)
{
    Fail(&m_load, Goods);
    const int earlier = m_load.GetNumber();
    Ignore(m_load.HandleStarted());
    EXPECT_THAT(m_load.HandleContent(earlier), IsEmpty());
}

TEST_F(PageLoadTest, AfterAFailureAPageWithAnErrorStatusIsContent)
{
    Fail(&m_load, Goods);
    Ignore(m_load.Ask(Orders));
    Ignore(m_load.HandleStarted());
    Ignore(m_load.HandleAddress(Orders));
    Ignore(m_load.HandleFinished(false));
    EXPECT_THAT(m_load.HandleReason(m_load.GetNumber(), false),
                ElementsAre(Effect::TellContent, Effect::TellHistory, Effect::TellFinishedNotOk));
}

TEST_F(PageLoadTest, AfterAFailureALoadThatEndsWellHealsIt)
{
    Fail(&m_load, Goods);
    Show(&m_load, Orders);
    Ignore(m_load.HandleStarted());
    EXPECT_THAT(m_load.HandleProgress(40), IsEmpty());
}

TEST_F(PageLoadTest, ADeadRendererIsAFailureUntilContentIsThere)
{
    Show(&m_load, Orders);
    Ignore(m_load.HandleRendererDied());
    Ignore(m_load.HandleStarted());
    EXPECT_THAT(m_load.HandleProgress(40), ElementsAre(Effect::LookForContent));
    EXPECT_THAT(m_load.HandleContent(m_load.GetNumber()), ElementsAre(Effect::TellContent));
}

TEST_F(PageLoadTest, ADeadRendererAnswersNoQuestion)
{
    m_load = Reach(Stage::Ending);
    const int number = m_load.GetNumber();
    Ignore(m_load.HandleRendererDied());
    Ignore(m_load.HandleStarted());
    Ignore(m_load.HandleFinished(false));
    EXPECT_THAT(m_load.HandleReason(number, true), IsEmpty());
}

TEST_F(PageLoadTest, ADeadRendererTakesNoNoteOfWhoStays)
{
    Show(&m_load, Orders);
    Ignore(m_load.HandleStay());
    Ignore(m_load.HandleRendererDied());
    Ignore(m_load.Ask(Goods));
    EXPECT_EQ(m_load.GetStage(), Stage::Asked);
    EXPECT_THAT(m_load.HandleStayNoted(), IsEmpty());
}

TEST_F(PageLoadTest, WhoStaysWithoutALoadHasTheNextOneHeld)
{
    Show(&m_load, Orders);
    Ignore(m_load.HandleStay());
    EXPECT_THAT(m_load.Ask(Goods), ElementsAre(Effect::TellStarted));
    EXPECT_THAT(m_load.HandleStayNoted(), ElementsAre(Effect::GiveToEngine));
    EXPECT_EQ(m_load.GetAsked(), Goods);
}

TEST_F(PageLoadTest, WhoStaysDuringALoadHasTheNextOneHeld)
{
    for (const Stage stage : {Stage::Running, Stage::Ending}) {
        PageLoad load = Reach(stage);
        Ignore(load.HandleStay());
        EXPECT_THAT(load.Ask(Prices), ElementsAre(Effect::TellFinishedNotOk, Effect::TellStarted));
        EXPECT_EQ(load.GetStage(), Stage::Held);
    }
}

TEST_F(PageLoadTest, WhoStaysTwiceOverTheSameLoadIsNotedOnce)
{
    m_load = Reach(Stage::Dropped);
    Ignore(m_load.HandleStay());
    EXPECT_EQ(m_load.HandleStayNoted(), BackToPageBefore);
    EXPECT_THAT(m_load.HandleStayNoted(), IsEmpty());
}

TEST_F(PageLoadTest, WhoStaysTwiceIsNotedOnce)
{
    m_load = Reach(Stage::Held);
    Ignore(m_load.HandleStay());
    EXPECT_THAT(m_load.HandleStayNoted(), ElementsAre(Effect::GiveToEngine));
    EXPECT_THAT(m_load.HandleStayNoted(), IsEmpty());
    EXPECT_EQ(m_load.GetStage(), Stage::Asked);
}

TEST_F(PageLoadTest, AHeldLoadThatIsWithdrawnIsNotGivenToTheEngine)
{
    m_load = Reach(Stage::Held);
    Ignore(m_load.Withdraw());
    EXPECT_THAT(m_load.HandleStayNoted(), IsEmpty());
    EXPECT_EQ(m_load.GetStage(), Stage::Idle);
}

TEST_F(PageLoadTest, AWithdrawnLoadDoesNotEndWhatHoldsTheNext)
{
    m_load = Reach(Stage::Dropped);
    Ignore(m_load.Withdraw());
    EXPECT_THAT(m_load.Ask(Prices), ElementsAre(Effect::TellStarted));
    EXPECT_THAT(m_load.HandleStayNoted(), ElementsAre(Effect::GiveToEngine));
}

TEST_F(PageLoadTest, ALoadOfThePagesOwnTakesThePlaceOfAHeldOne)
{
    m_load = Reach(Stage::Held);
    Ignore(m_load.HandleStarted());
    EXPECT_THAT(m_load.HandleStayNoted(), IsEmpty());
    EXPECT_EQ(m_load.GetStage(), Stage::Running);
}
