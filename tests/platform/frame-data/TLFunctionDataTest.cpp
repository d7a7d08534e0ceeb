#include "frame-data/TLFunctionData.h"

#include <QtTest/QSignalSpy>

#include <gtest/gtest.h>

namespace {

TEST(TLFunctionDataTest, SwitchThatWasNeverSetIsOff)
{
    const TLFunctionData data;
    EXPECT_FALSE(data.GetFunctionInfo(8).IsValid());
    EXPECT_FALSE(data.GetFunctionInfo(8).IsDisplay());
}

TEST(TLFunctionDataTest, SettingReplacesAllSwitches)
{
    TLFunctionData data;
    QSignalSpy changed(&data, &TLFunctionData::SigFunctionsChanged);
    data.SetFunctions({{8, TLFunctionInfo(true, false)}, {9, TLFunctionInfo(false, true)}});
    EXPECT_TRUE(data.GetFunctionInfo(8).IsValid());
    EXPECT_FALSE(data.GetFunctionInfo(8).IsDisplay());
    EXPECT_FALSE(data.GetFunctionInfo(9).IsValid());
    EXPECT_TRUE(data.GetFunctionInfo(9).IsDisplay());
    data.SetFunctions({{9, TLFunctionInfo(true, true)}});
    EXPECT_FALSE(data.GetFunctionInfo(8).IsValid());
    EXPECT_TRUE(data.GetFunctionInfo(9).IsValid());
    EXPECT_EQ(changed.count(), 2);
}

} // namespace
