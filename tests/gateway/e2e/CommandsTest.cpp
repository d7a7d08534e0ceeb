#include "records/ConfigurationJson.h"
#include "support/Program.h"
#include "support/RemoteUser.h"
#include "support/SampleConfiguration.h"
#include "support/ServingProgram.h"

#include <boost/json/parse.hpp>
#include <boost/json/serialize.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace TLGateway {

using testing::AllOf;
using testing::HasSubstr;
using testing::MatchesRegex;

// Every command through the built program, on a database of its own.
class CommandsTest : public testing::Test
{
protected:
    ProgramResult Run(std::vector<std::string> arguments, const std::string& input = {})
    {
        arguments.insert(arguments.end(), {"--database", "sqlite:" + file});
        return RunProgram(arguments, input);
    }

    void ExpectDone(const ProgramResult& result)
    {
        EXPECT_EQ(result.exitCode, 0) << result.err;
        EXPECT_EQ(result.err, "");
    }

    void ExpectError(const ProgramResult& result, const std::string& text)
    {
        EXPECT_NE(result.exitCode, 0);
        EXPECT_THAT(result.err, HasSubstr(text));
        EXPECT_EQ(result.out, "");
    }

    void AddAnna() { ExpectDone(Run({"user", "add", "anna", "--belong-type", "merchant"}, "pass word\n")); }

    std::string SampleFile()
    {
        return folder.Write("sample.json", boost::json::serialize(ToJson(SampleConfiguration())));
    }

    TemporaryFolder folder;
    std::string file = folder.File("gateway.db");
};

TEST_F(CommandsTest, UserIsAddedListedAndCanLogIn)
{
    AddAnna();
    EXPECT_EQ(Run({"user", "list"}).out, "anna\tmerchant\n");
    ExpectDone(Run({"key", "set", "tl-client"}, "tl-client-development-secret\r\n"));
    const ServingProgram program("sqlite:" + file);
    RemoteUser anna(program.Port(), "anna", "merchant");
    EXPECT_THROW(anna.Login("pass"), std::runtime_error);
    EXPECT_NO_THROW(anna.Login("pass word"));
}

TEST_F(CommandsTest, UserThatExistsIsNotAddedAgain)
{
    AddAnna();
    ExpectError(Run({"user", "add", "anna", "--belong-type", "other"}, "x\n"), "\"anna\" already exists");
    EXPECT_EQ(Run({"user", "list"}).out, "anna\tmerchant\n");
}

TEST_F(CommandsTest, UserNeedsAPasswordAndAPinWithoutControls)
{
    ExpectError(Run({"user", "add", "anna", "--belong-type", "m"}, ""), "no password on standard input");
    ExpectError(Run({"user", "add", "anna", "--belong-type", "m"}, "\n"), "no password on standard input");
    ExpectError(Run({"user", "add", "an\nna", "--belong-type", "m"}, "x\n"), "control characters");
    ExpectError(Run({"user", "add", "anna"}, "x\n"), "--belong-type is required");
    EXPECT_EQ(Run({"user", "list"}).out, "");
}

TEST_F(CommandsTest, ChangedPasswordEndsTheLogins)
{
    ExpectDone(Run({"demo", "--pages", "http://127.0.0.1:1"}));
    const ServingProgram program("sqlite:" + file);
    RemoteUser demo(program.Port(), "demo", "merchant");
    demo.Login("demo");
    EXPECT_EQ(demo.Get().at("code"), "0");
    ExpectDone(Run({"user", "password", "demo"}, "new\n"));
    EXPECT_EQ(demo.Get().at("code"), "2002");
    EXPECT_NO_THROW(demo.Login("new"));
}

TEST_F(CommandsTest, PasswordOfAnUnknownUserIsAnError)
{
    AddAnna();
    ExpectError(Run({"user", "password", "nobody"}, "x\n"), "there is no user \"nobody\"");
}

TEST_F(CommandsTest, ImportedConfigurationIsShownAndCanBeImportedAgain)
{
    AddAnna();
    ExpectDone(Run({"config", "import", "anna", SampleFile()}));
    const ProgramResult shown = Run({"config", "show", "anna"});
    ExpectDone(shown);
    boost::json::object expected = ToJson(SampleConfiguration());
    expected["revision"] = 1;
    EXPECT_EQ(boost::json::parse(shown.out), boost::json::value(expected));
    EXPECT_THAT(shown.out, HasSubstr("\n  \"customItems\": [\n    {\n"));

    ExpectDone(Run({"config", "import", "anna", folder.Write("again.json", shown.out)}));
    expected["revision"] = 2;
    EXPECT_EQ(boost::json::parse(Run({"config", "show", "anna"}).out), boost::json::value(expected));
}

TEST_F(CommandsTest, EarlierRevisionIsShownAndTheHistoryListsBoth)
{
    AddAnna();
    ExpectDone(Run({"config", "import", "anna", SampleFile()}));
    const std::string empty =
        folder.Write("empty.json", R"({"customItems":[],"pluginItems":[],"systemItems":[]})");
    ExpectDone(Run({"config", "import", "anna", empty}));
    EXPECT_THAT(Run({"config", "show", "anna", "--revision", "1"}).out, HasSubstr("\"c1\""));
    EXPECT_THAT(Run({"config", "show", "anna"}).out, HasSubstr("\"customItems\": []"));
    ExpectError(Run({"config", "show", "anna", "--revision", "3"}), "no revision 3");
    const std::string row = "[0-9]+-[0-9]+-[0-9]+ [0-9]+:[0-9]+:[0-9]+  operator ";
    EXPECT_THAT(Run({"config", "history", "anna"}).out,
                MatchesRegex("revision .*\n +2  " + row + " +0 +0 +0\n +1  " + row + " +2 +2 +1\n"));
}

TEST_F(CommandsTest, ConfigurationOfAnUnknownUserIsAnError)
{
    AddAnna();
    ExpectError(Run({"config", "show", "nobody"}), "there is no user \"nobody\"");
    ExpectError(Run({"config", "history", "nobody"}), "there is no user \"nobody\"");
    ExpectError(Run({"config", "import", "nobody", SampleFile()}), "there is no user \"nobody\"");
}

TEST_F(CommandsTest, ImportThatBreaksALimitNamesTheFileAndThePath)
{
    AddAnna();
    AutoRunConfiguration sample = SampleConfiguration();
    sample.customItems[1].itemId = "c1";
    const std::string duplicate = folder.Write("duplicate.json", boost::json::serialize(ToJson(sample)));
    ExpectError(Run({"config", "import", "anna", duplicate}), duplicate + ": $.customItems[1].itemId");
    EXPECT_THAT(Run({"config", "show", "anna"}).out, HasSubstr("\"revision\": 0"));
}

TEST_F(CommandsTest, ImportOfAFileThatCannotBeReadIsAnError)
{
    AddAnna();
    ExpectError(Run({"config", "import", "anna", folder.Write("no.json", "{")}), "is not JSON");
    ExpectError(Run({"config", "import", "anna", folder.Write("bad.json", "{\"a\":\"\xFF\"}")}),
                "not valid UTF-8");
    ExpectError(Run({"config", "import", "anna", folder.File("missing.json")}), "cannot read");
    EXPECT_THAT(Run({"config", "show", "anna"}).out, HasSubstr("\"revision\": 0"));
}

TEST_F(CommandsTest, CatalogueAndSwitchesReachTheClient)
{
    ExpectDone(Run({"demo", "--pages", "http://127.0.0.1:1"}));
    const ServingProgram program("sqlite:" + file);
    RemoteUser demo(program.Port(), "demo", "merchant");
    demo.Login("demo");
    const std::string apps = folder.Write(
        "apps.json",
        R"([{"name":"One","serviceCode":"one","iconUrl":"","address":"https://one.example/","availability":0}])");
    EXPECT_EQ(Run({"app", "import", apps}).out, "1 apps imported\n");
    ExpectDone(Run({"switch", "set", "3", "--valid"}));
    ExpectDone(Run({"switch", "set", "8"}));
    const std::string param =
        R"({"param":{"belongType":"merchant","deviceId":"d","pin":"demo","platform":"pc-win"}})";
    EXPECT_EQ(boost::json::serialize(demo.Call("dsm.tl.pc.plugin.list", param).at("data")),
              R"({"plugins":[{"address":"https://one.example/","availability":0,"iconUrl":"","name":"One",)"
              R"("serviceCode":"one"}]})");
    EXPECT_EQ(boost::json::serialize(demo.Call("dsm.tl.pc.function.list", param).at("data")),
              R"({"functions":[{"display":false,"number":3,"valid":true},)"
              R"({"display":false,"number":8,"valid":false}]})");
}

TEST_F(CommandsTest, ListedCatalogueCanBeImportedAgain)
{
    const std::string apps = folder.Write(
        "apps.json",
        R"([{"name":"Two","serviceCode":"two","iconUrl":"","address":"https://two.example/","availability":1},)"
        R"({"name":"One","serviceCode":"one","iconUrl":"","address":"https://one.example/","availability":0}])");
    ExpectDone(Run({"app", "import", apps}));
    const std::string listed = Run({"app", "list"}).out;
    EXPECT_LT(listed.find("\"two\""), listed.find("\"one\""));
    ExpectDone(Run({"app", "import", folder.Write("listed.json", listed)}));
    EXPECT_EQ(Run({"app", "list"}).out, listed);
}

TEST_F(CommandsTest, WrongCatalogueAndWrongSwitchAreErrors)
{
    ExpectError(Run({"app", "import", folder.Write("apps.json", "{}")}), "wanted array");
    ExpectError(Run({"switch", "set", "x"}), "NUMBER");
    ExpectError(Run({"switch", "set", "-1"}), "NUMBER");
}

TEST_F(CommandsTest, DemoIsReadyForTheClientAndASecondRunResetsIt)
{
    const ServingProgram program("sqlite:" + file, {"--demo-pages"});
    const std::string base = "http://127.0.0.1:" + std::to_string(program.Port());
    ExpectDone(Run({"demo", "--pages", base + "/"}));
    RemoteUser demo(program.Port(), "demo", "merchant");
    demo.Login("demo");
    const boost::json::value first = demo.Get().at("data");
    EXPECT_EQ(first.at("systemItems").as_array().size(), 2U);
    EXPECT_EQ(first.at("customItems").as_array().size(), 2U);
    EXPECT_EQ(first.at("pluginItems").as_array().size(), 3U);

    EXPECT_TRUE(demo.Set(R"({"customItems":[],"pluginItems":[],"systemItems":[]})"));
    ExpectDone(Run({"demo", "--pages", base}));
    demo.Login("demo");
    EXPECT_EQ(demo.Get().at("data"), first);

    HttpClient browser(program.Port());
    const std::string address(first.at("systemItems").at(0).at("url").as_string());
    ASSERT_EQ(address.rfind(base + "/demo/", 0), 0U) << address;
    browser.Write("GET " + address.substr(base.size()) + " HTTP/1.1\r\nHost: x\r\n\r\n");
    EXPECT_EQ(browser.Read().status, 200);
}

TEST_F(CommandsTest, DemoNeedsAnAddressOfPages)
{
    ExpectError(Run({"demo", "--pages", "ftp://x"}), "--pages");
    ExpectError(Run({"demo"}), "--pages is required");
}

TEST_F(CommandsTest, KeyThatIsSetWhileTheGatewayServesIsKnownWhenTheCommandEnds)
{
    const ServingProgram program("sqlite:" + file);
    AddAnna();
    {
        RemoteUser anna(program.Port(), "anna", "merchant");
        EXPECT_THROW(anna.Login("pass word"), std::runtime_error) << "no key is known yet";
    }
    ExpectDone(Run({"key", "set", "tl-client"}, "tl-client-development-secret\n"));
    RemoteUser anna(program.Port(), "anna", "merchant");
    EXPECT_NO_THROW(anna.Login("pass word"));
}

TEST_F(CommandsTest, DemoPagesAreServedOnlyWhenAskedFor)
{
    const ServingProgram program("sqlite:" + file);
    HttpClient browser(program.Port());
    browser.Write("GET /demo/orders HTTP/1.1\r\nHost: x\r\n\r\n");
    EXPECT_EQ(browser.Read().status, 404);
}

TEST_F(CommandsTest, WrongDatabaseUrlSaysWhatIsExpected)
{
    for (const std::string url : {"gateway.db", "db://host/db", "sqlite:"}) {
        const ProgramResult result = RunProgram({"user", "list", "--database", url});
        ExpectError(result, "sqlite:");
    }
}

TEST_F(CommandsTest, DatabaseMustBeNamed)
{
    ExpectError(RunProgram({"user", "list"}), "--database is required");
}

TEST_F(CommandsTest, ServeDoesNotMakeAFolder)
{
    ExpectError(
        RunProgram({"serve", "--database", "sqlite:" + folder.File("no/such.db"), "--listen", "127.0.0.1:0"}),
        "does not exist");
}

TEST_F(CommandsTest, ReadingCommandDoesNotMakeADatabase)
{
    ExpectError(Run({"user", "list"}), "no such file");
    ExpectError(Run({"config", "show", "anna"}), "no such file");
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::u8path(file)));
}

TEST_F(CommandsTest, HelpIsNoError)
{
    EXPECT_EQ(RunProgram({"--help"}).exitCode, 0);
}

TEST_F(CommandsTest, MissingAndUnknownCommandsAreErrors)
{
    ExpectError(RunProgram({}), "subcommand is required");
    EXPECT_NE(RunProgram({"fly"}).exitCode, 0);
}

TEST_F(CommandsTest, UnknownOptionIsAnError)
{
    ExpectError(Run({"user", "list", "--loudly"}), "--loudly");
}

TEST_F(CommandsTest, ServeRefusesOptionsOutOfRange)
{
    ExpectError(Run({"serve", "--listen", "localhost"}), "--listen");
    ExpectError(Run({"serve", "--listen", "127.0.0.1:0", "--threads", "0"}), "--threads");
    ExpectError(Run({"serve", "--listen", "127.0.0.1:0", "--token-lifetime", "0"}), "--token-lifetime");
}

TEST_F(CommandsTest, ServeDoesNotStartOnADamagedFileAndLeavesIt)
{
    for (int i = 0; i < 3; ++i) {
        ExpectDone(Run({"user", "add", "user" + std::to_string(i), "--belong-type", "m"}, "x\n"));
    }
    DamageFile(file, 4096);
    const std::string before = ReadBytes(file);
    ExpectError(Run({"serve", "--listen", "127.0.0.1:0"}), "restore the last backup");
    EXPECT_EQ(ReadBytes(file), before);
}

} // namespace TLGateway
