#include "ContractClient.h"
#include "GatewayUnderTest.h"
#include "JsonResponse.h"
#include "LoginAnswer.h"
#include "LoginRequest.h"
#include "OddRequest.h"
#include "UserRequest.h"
#include "WaitUntil.h"
#include "WriteRequest.h"

#include "base/Provided.h"
#include "http-module/HttpResponseBasicDsm.h"
#include "http-module/HttpResponseObjectDsm.h"
#include "http/HttpManager.h"
#include "http/HttpReplyCache.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlError>
#include <QtSql/QSqlQuery>

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using LoginResponse = HttpResponseObjectDsm<LoginAnswer>;
using BoolResponse = HttpResponseBasicDsm<bool>;

const QString ReadMethod = QStringLiteral("dsm.tl.pc.auto.run.get");

// As the operator imports it; every list in an order of its own.
const char* const Configuration = R"({
  "systemItems": [
    {"activeItem":false,"checked":true,"itemId":"sys-2","name":"NoticeBoard","systemItem":true,"type":0,"url":"https://notices.example/"},
    {"activeItem":false,"checked":false,"itemId":"sys-1","name":"Rules","systemItem":true,"type":0,"url":"https://rules.example/"}],
  "customItems": [
    {"activeItem":true,"checked":true,"itemId":"{c-1}","name":"Supplier","systemItem":false,"type":0,"url":"https://supplier.example/?a=1&b=2"}],
  "pluginItems": [
    {"activeItem":false,"checked":true,"itemId":"{p-1}","name":"Orders","systemItem":false,"type":1,"url":"orders"}]})";

const char* const Apps = R"([
  {"address":"https://orders.example/","availability":0,"iconUrl":"https://orders.example/i.png","name":"Orders","serviceCode":"orders"},
  {"address":"https://labels.example/","availability":1,"iconUrl":"","name":"Labels","serviceCode":"a-labels"}])";

std::string Text(const QString& text)
{
    return text.toStdString();
}

std::string Text(const QJsonValue& value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).toStdString();
}

QJsonObject FromText(const char* json)
{
    return QJsonDocument::fromJson(json).object();
}

QJsonObject Entry(const QString& id, const QString& name, const QString& url, int type = 0)
{
    return {{QStringLiteral("activeItem"), false}, {QStringLiteral("checked"), true},
            {QStringLiteral("itemId"), id},        {QStringLiteral("name"), name},
            {QStringLiteral("systemItem"), false}, {QStringLiteral("type"), type},
            {QStringLiteral("url"), url}};
}

QJsonObject Lists(const QJsonArray& system, const QJsonArray& custom, const QJsonArray& plugins)
{
    return {{QStringLiteral("systemItems"), system},
            {QStringLiteral("customItems"), custom},
            {QStringLiteral("pluginItems"), plugins}};
}

} // namespace

// The client's gateway classes against the built gateway.
class GatewayContractTest : public ::testing::Test
{
protected:
    GatewayContractTest()
        : gateway(folder.path())
        , manager(std::make_unique<HttpReplyCache>(folder.filePath(QStringLiteral("replies"))))
    {}
    ~GatewayContractTest() override { TLGlobalData::Instance()->ClearUser(); }

    void SetUp() override
    {
        ASSERT_TRUE(gateway.Command({QStringLiteral("user"), QStringLiteral("add"), QStringLiteral("demo"),
                                     QStringLiteral("--belong-type"), QStringLiteral("merchant")},
                                    "s3cret pass\n"));
        ASSERT_TRUE(gateway.Command({QStringLiteral("key"), QStringLiteral("set"), QStringLiteral("client")},
                                    "the app secret\n"));
        ASSERT_TRUE(gateway.Command({QStringLiteral("config"), QStringLiteral("import"),
                                     QStringLiteral("demo"), FileWith(Configuration)}));
        ASSERT_TRUE(gateway.Command({QStringLiteral("app"), QStringLiteral("import"), FileWith(Apps)}));
        ASSERT_TRUE(gateway.Command({QStringLiteral("switch"), QStringLiteral("set"), QStringLiteral("8"),
                                     QStringLiteral("--valid"), QStringLiteral("--display")}));
        ASSERT_TRUE(gateway.Command({QStringLiteral("switch"), QStringLiteral("set"), QStringLiteral("9")}));
        ASSERT_TRUE(gateway.Start());

        client.config.address = gateway.GetAddress();
        client.config.appKey = QStringLiteral("client");
        client.config.appSecret = QStringLiteral("the app secret");
        client.config.language = QStringLiteral("en");
        client.config.region = QStringLiteral("US");
        client.config.platform = QStringLiteral("pc-win");
        TLGlobalData::Instance()->SetUUID(QStringLiteral("device-1"));
    }

    QString FileWith(const QByteArray& content) const
    {
        QString path = folder.filePath(QStringLiteral("import.json"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    }

    void Run(const QSharedPointer<IHttpRequest>& request, const QSharedPointer<IHttpResponse>& response,
             int attempts = 1)
    {
        bool done = false;
        manager.Send(
            request, response, [&done] { done = true; }, 15000, attempts);
        ASSERT_TRUE(WaitUntil([&done] { return done; }));
    }

    QSharedPointer<LoginResponse> TryToLogIn(const QString& pin, const QString& password)
    {
        auto response = QSharedPointer<LoginResponse>::create();
        Run(QSharedPointer<LoginRequest>::create(pin, password), response);
        return response;
    }

    void LogIn()
    {
        const auto response = TryToLogIn(QStringLiteral("demo"), QStringLiteral("s3cret pass"));
        ASSERT_TRUE(response->IsSuccess()) << Text(response->GetErrorDesc());
        client.config.accessToken = response->GetEntity()->m_accessToken;
        TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), response->GetEntity()->m_belongType);
    }

    QSharedPointer<JsonResponse> Ask(const QString& method)
    {
        auto response = QSharedPointer<JsonResponse>::create();
        Run(QSharedPointer<UserRequest>::create(method), response);
        return response;
    }

    QJsonObject Read()
    {
        const auto response = Ask(ReadMethod);
        EXPECT_TRUE(response->IsSuccess()) << Text(response->GetErrorDesc());
        return response->GetValue().toObject();
    }

    QSharedPointer<BoolResponse> Write(const QJsonObject& configuration)
    {
        auto response = QSharedPointer<BoolResponse>::create();
        Run(QSharedPointer<WriteRequest>::create(configuration), response);
        return response;
    }

    QSharedPointer<OddRequest> MakeOdd() const
    {
        auto request = QSharedPointer<OddRequest>::create();
        request->business = UserRequest(ReadMethod).GetBusinessParam();
        return request;
    }

    static void ExpectRefused(const IHttpResponseDsm& response, const char* code, const char* inMessage)
    {
        EXPECT_FALSE(response.IsSuccess());
        EXPECT_EQ(Text(response.GetErrorCode()), code);
        EXPECT_TRUE(response.GetErrorDesc().contains(QLatin1String(inMessage)))
            << Text(response.GetErrorDesc());
        EXPECT_FALSE(response.GetRequestId().isEmpty());
        EXPECT_FALSE(response.ShouldRetry());
        EXPECT_FALSE(response.NeedReadFromCache());
    }

    void ExpectOddRefused(const QSharedPointer<OddRequest>& request, const char* code, const char* inMessage)
    {
        const auto response = QSharedPointer<JsonResponse>::create();
        Run(request, response);
        ExpectRefused(*response, code, inMessage);
    }

    QTemporaryDir folder;
    GatewayUnderTest gateway;
    ContractClient client;
    Provided<IDsmGateway> provided{&client};
    HttpManager manager;
};

TEST_F(GatewayContractTest, LogInGivesATokenAndLogOutEndsIt)
{
    const auto login = TryToLogIn(QStringLiteral("demo"), QStringLiteral("s3cret pass"));
    ASSERT_TRUE(login->IsSuccess()) << Text(login->GetErrorDesc());
    EXPECT_FALSE(login->GetRequestId().isEmpty());
    EXPECT_FALSE(login->GetEntity()->m_accessToken.isEmpty());
    EXPECT_EQ(Text(login->GetEntity()->m_belongType), "merchant");
    EXPECT_EQ(Text(login->GetEntity()->m_pin), "demo");
    const QDateTime expires =
        QDateTime::fromString(login->GetEntity()->m_expiresAt, QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    ASSERT_TRUE(expires.isValid()) << Text(login->GetEntity()->m_expiresAt);
    EXPECT_GT(expires.date(), QDate::currentDate());

    LogIn();
    const auto logout = QSharedPointer<BoolResponse>::create();
    Run(QSharedPointer<UserRequest>::create(QStringLiteral("dsm.tl.pc.user.logout")), logout);
    EXPECT_TRUE(logout->IsSuccess()) << Text(logout->GetErrorDesc());
    EXPECT_TRUE(logout->GetValue());
    ExpectRefused(*Ask(ReadMethod), "2002", "access token");
}

TEST_F(GatewayContractTest, TheConfigurationComesInTheOperatorsOrder)
{
    LogIn();
    EXPECT_EQ(Text(Read()), Text(FromText(Configuration)));
}

TEST_F(GatewayContractTest, AWriteReplacesTheUsersEntriesAndOnlyTheFlagsOfTheOperators)
{
    LogIn();
    QJsonObject notices = FromText(Configuration)[QStringLiteral("systemItems")].toArray()[0].toObject();
    notices[QStringLiteral("checked")] = false;
    notices[QStringLiteral("activeItem")] = true;
    notices[QStringLiteral("name")] = QStringLiteral("Mine now");
    notices[QStringLiteral("url")] = QStringLiteral("https://elsewhere.example/");
    QJsonObject removed = notices;
    removed[QStringLiteral("itemId")] = QStringLiteral("sys-gone");
    removed[QStringLiteral("activeItem")] = false;

    const QString id64(64, QLatin1Char('i'));
    const QString name256 = QString(255, QChar(0x4e2d)) + QStringLiteral(u"\U0001F600");
    const QString url2048 = QStringLiteral("https://x.example/") + QString(2048 - 18, QLatin1Char('u'));
    const QJsonArray custom{Entry(id64, name256, url2048, 99),
                            Entry(QStringLiteral("{b}"), QStringLiteral("a+b&c=d%20\"\\\n\t/'<>"),
                                  QStringLiteral("http://127.0.0.1:8080/?q=%E4%B8%AD&r=+#f")),
                            Entry(QStringLiteral("{a}"), QString(), QStringLiteral("x"))};
    const QJsonArray plugins{
        Entry(QStringLiteral("{p2}"), QStringLiteral("Labels"), QStringLiteral("a-labels"), 1)};

    const auto write = Write(Lists({removed, notices}, custom, plugins));
    ASSERT_TRUE(write->IsSuccess()) << Text(write->GetErrorDesc());
    EXPECT_TRUE(write->GetValue());

    QJsonArray system = FromText(Configuration)[QStringLiteral("systemItems")].toArray();
    QJsonObject first = system[0].toObject();
    first[QStringLiteral("checked")] = false;
    first[QStringLiteral("activeItem")] = true;
    system[0] = first;
    EXPECT_EQ(Text(Read()), Text(Lists(system, custom, plugins)));
}

TEST_F(GatewayContractTest, AWriteMayBeRepeatedAndSurvivesTheEndOfTheProcess)
{
    LogIn();
    const QJsonObject wanted = Lists(
        {}, {Entry(QStringLiteral("{a}"), QStringLiteral("A"), QStringLiteral("https://a.example/"))}, {});
    EXPECT_TRUE(Write(wanted)->GetValue());
    EXPECT_TRUE(Write(wanted)->GetValue());
    gateway.Kill();
    ASSERT_TRUE(gateway.Start());
    EXPECT_EQ(Text(Read()[QStringLiteral("customItems")]), Text(wanted[QStringLiteral("customItems")]));
}

TEST_F(GatewayContractTest, AppsAndSwitchesComeAsTheOperatorSetThem)
{
    LogIn();
    const auto apps = Ask(QStringLiteral("dsm.tl.pc.plugin.list"));
    ASSERT_TRUE(apps->IsSuccess()) << Text(apps->GetErrorDesc());
    EXPECT_EQ(Text(apps->GetValue()),
              Text(QJsonObject{{QStringLiteral("plugins"), QJsonDocument::fromJson(Apps).array()}}));

    const auto functions = Ask(QStringLiteral("dsm.tl.pc.function.list"));
    ASSERT_TRUE(functions->IsSuccess()) << Text(functions->GetErrorDesc());
    EXPECT_EQ(Text(functions->GetValue()), Text(FromText(R"({"functions":[
        {"display":true,"number":8,"valid":true},{"display":false,"number":9,"valid":false}]})")));
}

TEST_F(GatewayContractTest, ManyCallsAtOnceAreAllAnswered)
{
    LogIn();
    QVector<QSharedPointer<JsonResponse>> responses;
    int finished = 0;
    for (int i = 0; i < 30; ++i) {
        responses.append(QSharedPointer<JsonResponse>::create());
        manager.Send(
            QSharedPointer<UserRequest>::create(ReadMethod), responses.last(), [&finished] { ++finished; },
            15000, 1);
    }
    ASSERT_TRUE(WaitUntil([&finished] { return finished == 30; }));
    for (const auto& response : responses) {
        EXPECT_EQ(Text(response->GetValue()), Text(FromText(Configuration)));
    }
}

TEST_F(GatewayContractTest, AnyTextInAnyParameterKeepsTheSignatureRight)
{
    client.config.region = QStringLiteral(u" +&=%\u4e2d\U0001F600\n\"");
    client.config.language = QStringLiteral("zh_CN");
    LogIn();
    EXPECT_EQ(Text(Read()), Text(FromText(Configuration)));
}

TEST_F(GatewayContractTest, ParametersAreCheckedBeforeAnythingElse)
{
    LogIn();
    for (const char* const name : {"method", "app_key", "access_token", "timestamp", "format", "lang",
                                   "region", "platform", "tradix_param_json"}) {
        SCOPED_TRACE(name);
        const auto request = MakeOdd();
        request->edit = [name](QMap<QString, QString>& parameters) {
            parameters.remove(QString::fromLatin1(name));
        };
        ExpectOddRefused(request, "1001", name);
    }
    const auto twice = MakeOdd();
    twice->bodyEnd = "&lang=en";
    ExpectOddRefused(twice, "1001", "lang");
    const auto notUtf8 = MakeOdd();
    notUtf8->bodyEnd = "&extra=%ff";
    ExpectOddRefused(notUtf8, "1001", "extra");
}

TEST_F(GatewayContractTest, TheSignatureIsChecked)
{
    LogIn();
    const auto without = MakeOdd();
    without->edit = [](QMap<QString, QString>& parameters) { parameters.remove(QStringLiteral("sign")); };
    ExpectOddRefused(without, "1003", "sign");
    const auto unsignedExtra = MakeOdd();
    unsignedExtra->bodyEnd = "&extra=1";
    ExpectOddRefused(unsignedExtra, "1004", "sign");

    client.config.appKey = QStringLiteral("stranger");
    ExpectRefused(*Ask(ReadMethod), "1002", "app_key");
    client.config.appKey = QStringLiteral("client");
    client.config.appSecret = QStringLiteral("guessed");
    ExpectRefused(*Ask(ReadMethod), "1004", "sign");
    ExpectRefused(*Write(Lists({}, {}, {})), "1004", "sign");
    client.config.appSecret = QStringLiteral("the app secret");
    EXPECT_EQ(Text(Read()), Text(FromText(Configuration))) << "an unsigned write got through";
}

TEST_F(GatewayContractTest, AClockMayBeFiveMinutesOff)
{
    LogIn();
    for (const int offset : {-290, 290}) {
        client.clockError = offset;
        EXPECT_TRUE(Ask(ReadMethod)->IsSuccess()) << offset;
    }
    for (const int offset : {-310, 310}) {
        SCOPED_TRACE(offset);
        client.clockError = offset;
        const auto response = Ask(ReadMethod);
        ExpectRefused(*response, "1006", "5 minutes");
        const QRegularExpression form(QStringLiteral("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d"));
        QDateTime told = QDateTime::fromString(form.match(response->GetErrorDesc()).captured(),
                                               QStringLiteral("yyyy-MM-dd hh:mm:ss"));
        told.setTimeSpec(Qt::UTC);
        EXPECT_LT(std::abs(told.secsTo(QDateTime::currentDateTimeUtc())), 60) << "not the gateway's time";
    }
    client.clockError = 0;
    const auto request = MakeOdd();
    request->edit = [](QMap<QString, QString>& parameters) {
        parameters[QStringLiteral("timestamp")] = QStringLiteral("2026-02-03T04:05:06Z");
    };
    ExpectOddRefused(request, "1005", "timestamp");
}

TEST_F(GatewayContractTest, UnknownMethodsAndPlacesAreNamed)
{
    LogIn();
    ExpectRefused(*Ask(QStringLiteral("dsm.tl.pc.unheard.of")), "1007", "dsm.tl.pc.unheard.of");
    const auto elsewhere = MakeOdd();
    QUrl url = gateway.GetAddress();
    url.setPath(QStringLiteral("/elsewhere"));
    elsewhere->url = url.toString();
    ExpectOddRefused(elsewhere, "1012", "/elsewhere");
}

TEST_F(GatewayContractTest, TheBusinessJsonIsChecked)
{
    LogIn();
    const auto notJson = MakeOdd();
    notJson->business = R"({"param":)";
    ExpectOddRefused(notJson, "1008", "JSON");
    const auto wrongShape = MakeOdd();
    wrongShape->business =
        R"({"param":{"pin":17,"belongType":"merchant","deviceId":"device-1","platform":"pc-win"}})";
    ExpectOddRefused(wrongShape, "1009", "pin");
    const auto tooDeep = MakeOdd();
    tooDeep->business = QByteArray(100, '[') + QByteArray(100, ']');
    ExpectOddRefused(tooDeep, "1010", "32");
    const auto tooLarge = MakeOdd();
    tooLarge->business = '"' + QByteArray(256 * 1024, 'x') + '"';
    ExpectOddRefused(tooLarge, "1011", "");
}

TEST_F(GatewayContractTest, TheLimitsOfAConfigurationAreNamed)
{
    LogIn();
    QJsonArray six;
    for (int i = 0; i < 6; ++i) {
        six.append(Entry(QString::number(i), QStringLiteral("n"), QStringLiteral("u")));
    }
    ExpectRefused(*Write(Lists({}, six, {})), "1010", "customItems");
    ExpectRefused(*Write(Lists({}, {six[0], six[0]}, {})), "1010", "unique");
    ExpectRefused(
        *Write(
            Lists({}, {Entry(QStringLiteral("a"), QString(257, QLatin1Char('n')), QStringLiteral("u"))}, {})),
        "1010", "256");
    ExpectRefused(*Write(Lists({}, {Entry(QStringLiteral("a"), QString(), QString())}, {})), "1010", "url");
    ExpectRefused(*Write(Lists({}, {Entry(QStringLiteral("a"), QString(), QStringLiteral("u"), 1)}, {})),
                  "1010", "type");
    QJsonObject unknown = six[0].toObject();
    unknown[QStringLiteral("colour")] = QStringLiteral("red");
    ExpectRefused(*Write(Lists({}, {unknown}, {})), "1009", "colour");
    QJsonObject incomplete = six[0].toObject();
    incomplete.remove(QStringLiteral("checked"));
    ExpectRefused(*Write(Lists({}, {incomplete}, {})), "1009", "checked");
    EXPECT_EQ(Text(Read()), Text(FromText(Configuration))) << "a refused write got through";
}

TEST_F(GatewayContractTest, WrongPinAndWrongPasswordAreToldInOneText)
{
    const auto wrongPassword = TryToLogIn(QStringLiteral("demo"), QStringLiteral("guessed"));
    const auto wrongPin = TryToLogIn(QStringLiteral("nobody"), QStringLiteral("guessed"));
    ExpectRefused(*wrongPassword, "2001", "");
    ExpectRefused(*wrongPin, "2001", "");
    EXPECT_EQ(Text(wrongPassword->GetErrorDesc()), Text(wrongPin->GetErrorDesc()));
}

TEST_F(GatewayContractTest, TheEleventhGuessIsNotHeard)
{
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(Text(TryToLogIn(QStringLiteral("demo"), QStringLiteral("guess"))->GetErrorCode()), "2001")
            << i;
    }
    ExpectRefused(*TryToLogIn(QStringLiteral("demo"), QStringLiteral("s3cret pass")), "2006", "try again");
}

TEST_F(GatewayContractTest, TheTokenMustBeTheCallers)
{
    TLGlobalData* const user = TLGlobalData::Instance();
    LogIn();
    const QString token = client.config.accessToken;
    client.config.accessToken.clear();
    ExpectRefused(*Ask(ReadMethod), "2002", "missing");
    client.config.accessToken = QStringLiteral("made up");
    ExpectRefused(*Ask(ReadMethod), "2002", "unknown");
    client.config.accessToken = token;

    user->SetUUID(QStringLiteral("device-2"));
    ExpectRefused(*Ask(ReadMethod), "2004", "device");
    user->SetUUID(QStringLiteral("device-1"));
    user->SetUser(QStringLiteral("other"), QStringLiteral("merchant"));
    ExpectRefused(*Ask(ReadMethod), "2005", "pin");
    user->SetUser(QStringLiteral("demo"), QStringLiteral("supplier"));
    ExpectRefused(*Write(Lists({}, {}, {})), "2005", "belongType");
    user->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    EXPECT_EQ(Text(Read()), Text(FromText(Configuration)));
}

TEST_F(GatewayContractTest, AnExpiredTokenIsToldFromAnUnknownOne)
{
    LogIn();
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("expire"));
        database.setDatabaseName(gateway.GetDatabaseFile());
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        ASSERT_TRUE(query.exec(QStringLiteral("UPDATE access_token SET expires_at = expires_at - 100000000")))
            << Text(query.lastError().text());
    }
    QSqlDatabase::removeDatabase(QStringLiteral("expire"));
    ExpectRefused(*Ask(ReadMethod), "2003", "expired");
}

TEST_F(GatewayContractTest, ALockedStoreIsTheGatewaysFault)
{
    LogIn();
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("lock"));
        database.setDatabaseName(gateway.GetDatabaseFile());
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        ASSERT_TRUE(query.exec(QStringLiteral("BEGIN EXCLUSIVE"))) << Text(query.lastError().text());
        const auto write = Write(Lists({}, {}, {}));
        EXPECT_FALSE(write->IsSuccess());
        EXPECT_EQ(Text(write->GetErrorCode()), "5002");
        EXPECT_FALSE(write->GetErrorDesc().isEmpty());
        EXPECT_TRUE(write->ShouldRetry());
        EXPECT_TRUE(write->NeedReadFromCache());
        ASSERT_TRUE(query.exec(QStringLiteral("ROLLBACK")));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("lock"));
    EXPECT_TRUE(Write(Lists({}, {}, {}))->IsSuccess());
}

TEST_F(GatewayContractTest, TheLastKnownConfigurationServesWhileTheGatewayIsDown)
{
    LogIn();
    const auto read = [this] {
        auto response = QSharedPointer<JsonResponse>::create();
        response->SetAutoCache(true);
        Run(QSharedPointer<UserRequest>::create(ReadMethod), response, 2);
        return response;
    };
    EXPECT_FALSE(read()->IsFromCache());
    gateway.Kill();
    const auto kept = read();
    ASSERT_TRUE(kept->IsSuccess()) << Text(kept->GetErrorDesc());
    EXPECT_TRUE(kept->IsFromCache());
    EXPECT_EQ(Text(kept->GetValue()), Text(FromText(Configuration)));

    TLGlobalData::Instance()->SetUser(QStringLiteral("other"), QStringLiteral("merchant"));
    EXPECT_FALSE(read()->IsSuccess());
    TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));

    ASSERT_TRUE(gateway.Start());
    const auto fresh = read();
    ASSERT_TRUE(fresh->IsSuccess()) << Text(fresh->GetErrorDesc());
    EXPECT_FALSE(fresh->IsFromCache());
}
