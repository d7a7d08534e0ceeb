#include "json/JsonObjectReader.h"

#include "support/InvalidInputOf.h"
#include "json/BusinessJson.h"

#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

namespace {

template <typename Read>
std::string WrongShape(const char* json, Read read)
{
    const boost::json::value value = ParseBusinessJson(json);
    const InvalidInput invalid = InvalidInputOf([&] { read(JsonObjectReader(value, "$")); });
    EXPECT_EQ(invalid.BrokenRule(), InvalidInput::Rule::Shape);
    return invalid.what();
}

} // namespace

TEST(JsonObjectReaderTest, ReadsMembers)
{
    const boost::json::value value =
        ParseBusinessJson(R"({"s":"x\u0000y","b":true,"i":-3,"e":2e1,"o":{"p":"q"},"l":[{"n":1},{"n":2}]})");
    const JsonObjectReader reader(value, "$");
    EXPECT_EQ(reader.String("s"), std::string("x\0y", 3));
    EXPECT_TRUE(reader.Bool("b"));
    EXPECT_EQ(reader.Integer("i"), -3);
    EXPECT_EQ(reader.Integer("e"), 20);
    EXPECT_EQ(reader.Object("o").String("p"), "q");
    ASSERT_EQ(reader.Objects("l").size(), 2U);
    EXPECT_EQ(reader.Objects("l")[1].Integer("n"), 2);
    EXPECT_TRUE(reader.Has("s"));
    EXPECT_FALSE(reader.Has("t"));
}

TEST(JsonObjectReaderTest, MissingMemberGivesPathAndWantedType)
{
    EXPECT_EQ(
        WrongShape(R"({"o":{}})", [](const auto& r) { static_cast<void>(r.Object("o").String("pin")); }),
        "$.o.pin: wanted string, found nothing");
}

TEST(JsonObjectReaderTest, WrongTypesGivePathWantedAndFound)
{
    EXPECT_EQ(WrongShape(R"({"a":5})", [](const auto& r) { static_cast<void>(r.String("a")); }),
              "$.a: wanted string, found number");
    EXPECT_EQ(WrongShape(R"({"a":null})", [](const auto& r) { static_cast<void>(r.Bool("a")); }),
              "$.a: wanted bool, found null");
    EXPECT_EQ(WrongShape(R"({"a":"1"})", [](const auto& r) { static_cast<void>(r.Integer("a")); }),
              "$.a: wanted integer, found string");
    EXPECT_EQ(WrongShape(R"({"a":[]})", [](const auto& r) { static_cast<void>(r.Object("a")); }),
              "$.a: wanted object, found array");
    EXPECT_EQ(WrongShape(R"({"a":{}})", [](const auto& r) { static_cast<void>(r.Objects("a")); }),
              "$.a: wanted array, found object");
    EXPECT_EQ(WrongShape(R"({"a":[{},true]})", [](const auto& r) { static_cast<void>(r.Objects("a")); }),
              "$.a[1]: wanted object, found bool");
}

TEST(JsonObjectReaderTest, NumberWithAFractionOrTooLargeIsNoInteger)
{
    for (const char* json : {R"({"a":1.5})", R"({"a":1e300})", R"({"a":18446744073709551615})"}) {
        EXPECT_EQ(WrongShape(json, [](const auto& r) { static_cast<void>(r.Integer("a")); }),
                  "$.a: wanted integer, found number that is no integer");
    }
}

TEST(JsonObjectReaderTest, WholeDocumentThatIsNoObject)
{
    EXPECT_EQ(WrongShape("[1]", [](const auto&) {}), "$: wanted object, found array");
}

TEST(JsonObjectReaderTest, UnknownMemberIsNamed)
{
    EXPECT_EQ(WrongShape(R"({"a":1,"evil\n":2})",
                         [](const auto& r) {
                             r.AllowOnly({"a", "b"});
                         }),
              "$: wanted no member \"evil\\x0a\", found number");
}

} // namespace TLGateway
