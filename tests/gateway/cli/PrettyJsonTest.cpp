#include "PrettyJson.h"

#include <boost/json/parse.hpp>
#include <gtest/gtest.h>

namespace TLGateway {

TEST(PrettyJsonTest, IndentsMembersAndElements)
{
    const auto value = boost::json::parse(R"({"a":[1,{"b":"x\"\n订"}],"c":[],"d":{},"e":null})");
    EXPECT_EQ(PrettyJson(value), "{\n"
                                 "  \"a\": [\n"
                                 "    1,\n"
                                 "    {\n"
                                 "      \"b\": \"x\\\"\\n订\"\n"
                                 "    }\n"
                                 "  ],\n"
                                 "  \"c\": [],\n"
                                 "  \"d\": {},\n"
                                 "  \"e\": null\n"
                                 "}\n");
    EXPECT_EQ(boost::json::parse(PrettyJson(value)), value);
}

} // namespace TLGateway
