#include "records/AppJson.h"

#include "support/InvalidInputOf.h"
#include "json/BusinessJson.h"

#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

namespace {

const std::string App =
    R"({"address":"https://e.com/","availability":1,"iconUrl":"","name":"Orders","serviceCode":"orders"})";

std::string Problem(const std::string& json, InvalidInput::Rule rule)
{
    const boost::json::value value = ParseBusinessJson(json);
    const InvalidInput invalid = InvalidInputOf([&] { static_cast<void>(ReadApps(value)); });
    EXPECT_EQ(invalid.BrokenRule(), rule) << json;
    return invalid.what();
}

std::string With(const char* member, boost::json::value value)
{
    boost::json::object app = ParseBusinessJson(App).as_object();
    app[member] = std::move(value);
    return "[" + boost::json::serialize(app) + "]";
}

} // namespace

TEST(AppJsonTest, ReadsWhatItWrites)
{
    const std::vector<AppRecord> apps = ReadApps(ParseBusinessJson("[" + App + "]"));
    ASSERT_EQ(apps.size(), 1U);
    EXPECT_EQ(apps[0].availability, 1);
    EXPECT_EQ(boost::json::serialize(ToJson(apps[0])), App);
    EXPECT_TRUE(ReadApps(ParseBusinessJson("[]")).empty());
}

TEST(AppJsonTest, WrongShapes)
{
    EXPECT_THAT(Problem("{}", InvalidInput::Rule::Shape), testing::HasSubstr("wanted array"));
    EXPECT_THAT(Problem("[1]", InvalidInput::Rule::Shape), testing::HasSubstr("$[0]: wanted object"));
    EXPECT_THAT(Problem(With("name", 1), InvalidInput::Rule::Shape), testing::HasSubstr("$[0].name"));
    EXPECT_THAT(Problem(With("icon", 1), InvalidInput::Rule::Shape), testing::HasSubstr("\"icon\""));
}

TEST(AppJsonTest, Limits)
{
    EXPECT_THAT(Problem(With("availability", 2), InvalidInput::Rule::Limit), testing::HasSubstr("0 to 1"));
    EXPECT_THAT(Problem(With("serviceCode", ""), InvalidInput::Rule::Limit), testing::HasSubstr("1 to 2048"));
    EXPECT_THAT(Problem(With("name", boost::json::string(257, 'x')), InvalidInput::Rule::Limit),
                testing::HasSubstr("1 to 256"));
    EXPECT_THAT(Problem("[" + App + "," + App + "]", InvalidInput::Rule::Limit),
                testing::HasSubstr("$[1].serviceCode"));
}

} // namespace TLGateway
