#include "ClientLife.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Stage = ClientStage;

const std::vector<Stage> AllStages{Stage::Starting, Stage::LoggingIn, Stage::Entering,
                                   Stage::Working,  Stage::Ending,    Stage::Ended};

/// A life that reached the stage by allowed steps.
ClientLife LifeAt(Stage stage)
{
    ClientLife life;
    const std::vector<Stage> way{Stage::LoggingIn, Stage::Entering, Stage::Working, Stage::Ending,
                                 Stage::Ended};
    for (const Stage next : way) {
        if (life.GetStage() == stage) {
            break;
        }
        EXPECT_TRUE(life.Go(next));
    }
    return life;
}

std::vector<Stage> StepsFrom(Stage stage)
{
    std::vector<Stage> steps;
    for (const Stage to : AllStages) {
        if (LifeAt(stage).CanGo(to)) {
            steps.push_back(to);
        }
    }
    return steps;
}

} // namespace

TEST(ClientLifeTest, StartsWithALoginOrWithASessionThatWasHandedOver)
{
    EXPECT_EQ(StepsFrom(Stage::Starting),
              (std::vector<Stage>{Stage::LoggingIn, Stage::Entering, Stage::Ending, Stage::Ended}));
}

TEST(ClientLifeTest, LoginLeadsInOrToTheEnd)
{
    EXPECT_EQ(StepsFrom(Stage::LoggingIn),
              (std::vector<Stage>{Stage::Entering, Stage::Ending, Stage::Ended}));
}

TEST(ClientLifeTest, OnlyARefusedSessionLeadsBack)
{
    EXPECT_EQ(StepsFrom(Stage::Entering),
              (std::vector<Stage>{Stage::LoggingIn, Stage::Working, Stage::Ending, Stage::Ended}));
    EXPECT_EQ(StepsFrom(Stage::Working), (std::vector<Stage>{Stage::Ending, Stage::Ended}));
}

TEST(ClientLifeTest, EndIsDecidedAndComesOnce)
{
    EXPECT_EQ(StepsFrom(Stage::Ending), (std::vector<Stage>{Stage::Ended}));
    EXPECT_TRUE(StepsFrom(Stage::Ended).empty());
}

TEST(ClientLifeTest, StepThatIsNotAllowedChangesNothing)
{
    ClientLife life = LifeAt(Stage::Working);
    EXPECT_FALSE(life.Go(Stage::LoggingIn));
    EXPECT_EQ(life.GetStage(), Stage::Working);
    EXPECT_FALSE(life.IsEnding());
    EXPECT_TRUE(life.Go(Stage::Ending));
    EXPECT_TRUE(life.IsEnding());
}
