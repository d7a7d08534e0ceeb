#include "http-module/IHttpRequestDsm.h"

#include "FakeDsmGateway.h"
#include "FakeDsmRequest.h"

#include "base/Provided.h"
#include "core/TLGlobalData.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QLocale>
#include <QtCore/QRandomGenerator>

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

namespace {

std::string Text(const QString& text)
{
    return text.toStdString();
}

// HMAC-SHA256 from its definition, to check the signature against something that is not Qt's.
QByteArray Hmac(QByteArray key, const QByteArray& message)
{
    constexpr int BlockSize = 64;
    if (key.size() > BlockSize) {
        key = QCryptographicHash::hash(key, QCryptographicHash::Sha256);
    }
    key.append(QByteArray(BlockSize - key.size(), '\0'));
    QByteArray inner;
    QByteArray outer;
    for (const char byte : std::as_const(key)) {
        inner += static_cast<char>(byte ^ 0x36);
        outer += static_cast<char>(byte ^ 0x5c);
    }
    const QByteArray innerHash = QCryptographicHash::hash(inner + message, QCryptographicHash::Sha256);
    return QCryptographicHash::hash(outer + innerHash, QCryptographicHash::Sha256).toHex();
}

// Reads a form strictly: only unreserved characters stand for themselves.
QMap<QString, QString> ReadForm(const QByteArray& body)
{
    const auto decode = [](const QByteArray& text) {
        QByteArray decoded;
        for (int i = 0; i < text.size(); ++i) {
            if (text[i] == '%') {
                decoded += QByteArray::fromHex(text.mid(i + 1, 2));
                i += 2;
                continue;
            }
            const char c = text[i];
            EXPECT_TRUE((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                        QByteArray("-._~").contains(c))
                << "not encoded: " << c;
            decoded += c;
        }
        return QString::fromUtf8(decoded);
    };
    QMap<QString, QString> parameters;
    for (const QByteArray& pair : body.split('&')) {
        EXPECT_EQ(pair.count('='), 1);
        const QString name = decode(pair.left(pair.indexOf('=')));
        EXPECT_FALSE(parameters.contains(name)) << Text(name) << " occurs twice";
        parameters.insert(name, decode(pair.mid(pair.indexOf('=') + 1)));
    }
    return parameters;
}

// An envelope with one parameter more, as a request may add it.
class ExtendedRequest final : public IHttpRequestDsm
{
public:
    QString GetDsmMethod() const override { return QStringLiteral("m"); }
    QByteArray GetBusinessParam() const override { return "{}"; }
    QString GetDsmAppendix(DsmType type) const override
    {
        return type == DsmType::Language ? QStringLiteral("zh_CN") : IHttpRequestDsm::GetDsmAppendix(type);
    }
    void InitParam() override
    {
        IHttpRequestDsm::InitParam();
        m_parameters.insert(QStringLiteral("extra"), QStringLiteral("1"));
        m_parameters.insert(QStringLiteral("sign"),
                            QString::fromLatin1(Sign(m_parameters, QStringLiteral("other"))));
    }
};

} // namespace

class IHttpRequestDsmTest : public ::testing::Test
{
protected:
    ~IHttpRequestDsmTest() override { TLGlobalData::Instance()->ClearUser(); }

    FakeDsmGateway gateway;
    Provided<IDsmGateway> provided{&gateway};
    FakeDsmRequest request;
};

TEST_F(IHttpRequestDsmTest, SignsTheExampleOfTheProtocol)
{
    const QMap<QString, QString> parameters = {{QStringLiteral("app_key"), QStringLiteral("k")},
                                               {QStringLiteral("method"), QStringLiteral("m")},
                                               {QStringLiteral("access_token"), QString()}};
    EXPECT_EQ(IHttpRequestDsm::Sign(parameters, QStringLiteral("secret")),
              "efff871889e304f0072a8c98f21ce604fe58d440f7a9174b326c819ae4eab7d0");
}

TEST_F(IHttpRequestDsmTest, SignsUtf8InNamesValuesAndSecret)
{
    const QMap<QString, QString> parameters = {
        {QStringLiteral("z"), QStringLiteral("1")},
        {QStringLiteral("name"), QStringLiteral(u"\u8ba2\u5355 \U0001F600")},
        {QStringLiteral("a"), QString()},
    };
    EXPECT_EQ(IHttpRequestDsm::Sign(parameters, QStringLiteral(u"\u5bc6\u94a5")),
              "5d5d398b8836a6f70da3733c5671b7f15d3626097cb8e6357c11adfbafa6860a");
}

TEST_F(IHttpRequestDsmTest, SignsAsTheDefinitionOfHmacSays)
{
    // The check of the check: RFC 4231, test cases 1, 2, 3, 6 and 7.
    ASSERT_EQ(Hmac(QByteArray(20, '\x0b'), "Hi There"),
              "b0344c61d8db38535ca8afceaf0bf12b881dc200c9833da726e9376c2e32cff7");
    ASSERT_EQ(Hmac("Jefe", "what do ya want for nothing?"),
              "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843");
    ASSERT_EQ(Hmac(QByteArray(20, '\xaa'), QByteArray(50, '\xdd')),
              "773ea91e36800e46854db8ebd09181a72959098b3ef8c122d9635514ced565fe");
    ASSERT_EQ(Hmac(QByteArray(131, '\xaa'), "Test Using Larger Than Block-Size Key - Hash Key First"),
              "60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54");
    ASSERT_EQ(
        Hmac(QByteArray(131, '\xaa'),
             "This is a test using a larger than block-size key and a larger than block-size data. The key "
             "needs to be hashed before being used by the HMAC algorithm."),
        "9b09ffa71b942fcb27635fbcd5b0e944bfdc63644f0713938a7f51535c3a35e2");

    for (const int keySize : {0, 1, 32, 63, 64, 65, 200}) {
        const QString secret(keySize, QLatin1Char('s'));
        EXPECT_EQ(IHttpRequestDsm::Sign({{QStringLiteral("b"), QStringLiteral("2")},
                                         {QStringLiteral("a"), QStringLiteral("1")}},
                                        secret),
                  Hmac(secret.toUtf8(), "a=1\nb=2\n"))
            << keySize;
    }
    EXPECT_EQ(IHttpRequestDsm::Sign({}, QStringLiteral("s")), Hmac("s", ""));
}

TEST_F(IHttpRequestDsmTest, SortsNamesByTheirBytes)
{
    // U+FF01 is EF BC 81 and U+1F600 is F0 9F 98 80, while the UTF-16 units FF01 and D83D say otherwise.
    const QString high = QStringLiteral(u"\uff01");
    const QString astral = QStringLiteral(u"\U0001F600");
    EXPECT_EQ(IHttpRequestDsm::Sign({{astral, QStringLiteral("2")},
                                     {high, QStringLiteral("1")},
                                     {QStringLiteral("a_b"), QStringLiteral("3")},
                                     {QStringLiteral("aB"), QStringLiteral("4")}},
                                    QStringLiteral("s")),
              Hmac("s", "aB=4\na_b=3\n" + high.toUtf8() + "=1\n" + astral.toUtf8() + "=2\n"));
}

TEST_F(IHttpRequestDsmTest, TheSignatureDoesNotSignItself)
{
    const QMap<QString, QString> plain = {{QStringLiteral("a"), QStringLiteral("1")}};
    QMap<QString, QString> withSign = plain;
    withSign.insert(QStringLiteral("sign"), QStringLiteral("old"));
    EXPECT_EQ(IHttpRequestDsm::Sign(withSign, QStringLiteral("s")),
              IHttpRequestDsm::Sign(plain, QStringLiteral("s")));
}

TEST_F(IHttpRequestDsmTest, TheEnvelopeHoldsTheTenParameters)
{
    const QMap<QString, QString> form = ReadForm(request.GetApiBody());
    QMap<QString, QString> expected = {
        {QStringLiteral("method"), QStringLiteral("dsm.test.echo")},
        {QStringLiteral("app_key"), QStringLiteral("key")},
        {QStringLiteral("access_token"), QStringLiteral("token")},
        {QStringLiteral("timestamp"), QStringLiteral("2026-02-03 04:05:06")},
        {QStringLiteral("format"), QStringLiteral("json")},
        {QStringLiteral("lang"), QStringLiteral("en")},
        {QStringLiteral("region"), QStringLiteral("US")},
        {QStringLiteral("platform"), QStringLiteral("pc-win")},
        {QStringLiteral("tradix_param_json"), QStringLiteral(R"({"param":{"pin":"demo"}})")},
    };
    QByteArray signedText;
    for (auto it = expected.cbegin(); it != expected.cend(); ++it) {
        signedText += (it.key() + QLatin1Char('=') + it.value() + QLatin1Char('\n')).toUtf8();
    }
    expected.insert(QStringLiteral("sign"), QString::fromLatin1(Hmac("secret", signedText)));
    EXPECT_EQ(form, expected);
    EXPECT_EQ(request.m_parameters, expected);
}

TEST_F(IHttpRequestDsmTest, TheSecretIsNotSent)
{
    gateway.config.appSecret = QStringLiteral("do-not-tell");
    EXPECT_FALSE(request.GetApiBody().contains("do-not-tell"));
    EXPECT_FALSE(request.GetLogInfo().contains(QStringLiteral("token")));
    EXPECT_EQ(Text(request.GetLogInfo()), "dsm.test.echo");
}

TEST_F(IHttpRequestDsmTest, EmptyParametersAreSentAndSigned)
{
    gateway.config.accessToken.clear();
    gateway.config.region.clear();
    const QMap<QString, QString> form = ReadForm(request.GetApiBody());
    EXPECT_EQ(form.size(), 10);
    EXPECT_TRUE(form.contains(QStringLiteral("access_token")));
    EXPECT_EQ(form.value(QStringLiteral("sign")).toLatin1(),
              IHttpRequestDsm::Sign(form, QStringLiteral("secret")));
}

TEST_F(IHttpRequestDsmTest, AnyTextComesThroughTheEncoding)
{
    for (const QString& text : {
             QStringLiteral("a b+c&d=e%f/g?h#i;j,k\"l'm<n>"),
             QStringLiteral("line\r\nbreak\ttab"),
             QStringLiteral("%2B%00 already looks encoded"),
             QStringLiteral(u"\u8ba2\u5355\U0001F600\u00e9e\u0301\u202e"),
             QStringLiteral("-._~ABCxyz019"),
             QString(QChar(1)) + QChar(0x7f) + QChar(0xfffd),
         }) {
        SCOPED_TRACE(Text(text));
        request.business = text.toUtf8();
        EXPECT_EQ(Text(ReadForm(request.GetApiBody()).value(QStringLiteral("tradix_param_json"))),
                  Text(text));
    }
}

TEST_F(IHttpRequestDsmTest, RandomTextComesThroughTheEncoding)
{
    QRandomGenerator random(20260203);
    for (int round = 0; round < 200; ++round) {
        QString text;
        for (int i = 0; i < 40; ++i) {
            const uint point = random.bounded(0x110000u);
            text += QString::fromUcs4(&point, 1);
        }
        text = QString::fromUtf8(text.toUtf8()); // lone surrogates cannot travel
        gateway.config.region = text;
        const QMap<QString, QString> form = ReadForm(request.GetApiBody());
        ASSERT_EQ(form.value(QStringLiteral("region")), text);
        ASSERT_EQ(form.value(QStringLiteral("sign")).toLatin1(),
                  IHttpRequestDsm::Sign(form, QStringLiteral("secret")));
    }
}

TEST_F(IHttpRequestDsmTest, TheTimeStampIsUtcWhateverTheClockSays)
{
    gateway.now = QDateTime(QDate(2026, 1, 1), QTime(7, 30, 0), Qt::OffsetFromUTC, 8 * 3600);
    EXPECT_EQ(Text(ReadForm(request.GetApiBody()).value(QStringLiteral("timestamp"))), "2025-12-31 23:30:00");
}

TEST_F(IHttpRequestDsmTest, TheTimeStampDoesNotFollowTheLocale)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(Text(ReadForm(request.GetApiBody()).value(QStringLiteral("timestamp"))), "2026-02-03 04:05:06");
    QLocale::setDefault(before);
}

TEST_F(IHttpRequestDsmTest, EachAttemptIsStampedAndSignedAnew)
{
    const QMap<QString, QString> first = ReadForm(request.GetApiBody());
    request.DoReset();
    EXPECT_TRUE(request.m_parameters.isEmpty());
    gateway.now = gateway.now.addSecs(1);
    gateway.config.accessToken = QStringLiteral("token of a new log-in");
    const QMap<QString, QString> second = ReadForm(request.GetApiBody());
    EXPECT_EQ(Text(second.value(QStringLiteral("timestamp"))), "2026-02-03 04:05:07");
    EXPECT_EQ(Text(second.value(QStringLiteral("access_token"))), "token of a new log-in");
    EXPECT_NE(second.value(QStringLiteral("sign")), first.value(QStringLiteral("sign")));
}

TEST_F(IHttpRequestDsmTest, ARequestMaySayMoreAndSignIt)
{
    ExtendedRequest extended;
    const QMap<QString, QString> form = ReadForm(extended.GetApiBody());
    EXPECT_EQ(form.size(), 11);
    EXPECT_EQ(Text(form.value(QStringLiteral("lang"))), "zh_CN");
    EXPECT_EQ(form.value(QStringLiteral("sign")).toLatin1(),
              IHttpRequestDsm::Sign(form, QStringLiteral("other")));
}

TEST_F(IHttpRequestDsmTest, AnAddressWithoutAPathGetsTheResource)
{
    const std::pair<const char*, const char*> addresses[] = {
        {"http://host", "http://host/gateway"},
        {"http://host/", "http://host/gateway"},
        {"https://host:8443", "https://host:8443/gateway"},
        {"http://host/gateway", "http://host/gateway"},
        {"http://host/a/b", "http://host/a/b"},
        {"http://host/gateway/", "http://host/gateway/"},
        {"http://[::1]:80", "http://[::1]:80/gateway"},
        {"", ""},
    };
    for (const auto& [configured, called] : addresses) {
        gateway.config.address = QUrl(QString::fromLatin1(configured));
        EXPECT_EQ(Text(request.GetApiUrl()), called) << configured;
    }
}

TEST_F(IHttpRequestDsmTest, WithoutAGatewayThereIsNoAddress)
{
    const Provided<IDsmGateway> none(nullptr);
    EXPECT_EQ(Text(request.GetApiUrl()), "");
    ASSERT_NE(IDsmGateway::Instance(), nullptr);
    EXPECT_TRUE(IDsmGateway::Instance()->GetConfig().address.isEmpty());
    const qint64 off = IDsmGateway::Instance()->GetCurrentTime().secsTo(QDateTime::currentDateTimeUtc());
    EXPECT_LE(std::abs(off), 5);
}

TEST_F(IHttpRequestDsmTest, TheNameInTheLogIsTheMethod)
{
    EXPECT_EQ(request.GetMethodName(), "dsm.test.echo");
}

TEST_F(IHttpRequestDsmTest, NothingIsKeptWhileNobodyIsSignedIn)
{
    EXPECT_EQ(Text(request.GetCacheKey()), "");
}

TEST_F(IHttpRequestDsmTest, EverythingThatMattersIsInTheCacheKey)
{
    TLGlobalData* const user = TLGlobalData::Instance();
    QStringList keys;
    const auto take = [&] {
        keys.append(request.GetCacheKey());
        EXPECT_EQ(keys.last().size(), 64);
    };
    user->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    take();
    user->SetUser(QStringLiteral("other"), QStringLiteral("merchant"));
    take();
    user->SetUser(QStringLiteral("demo"), QStringLiteral("supplier"));
    take();
    user->SetUser(QStringLiteral("dem"), QStringLiteral("omerchant")); // the same bytes, cut elsewhere
    take();
    user->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    gateway.config.address = QUrl(QStringLiteral("http://127.0.0.1:2/gateway"));
    take();
    gateway.config.appKey = QStringLiteral("other key");
    take();
    request.method = QStringLiteral("dsm.test.other");
    take();
    request.business = "{}";
    take();
    EXPECT_EQ(keys.removeDuplicates(), 0);
}

TEST_F(IHttpRequestDsmTest, TokenAndTimeAreNotInTheCacheKey)
{
    TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    const QString before = request.GetCacheKey();
    gateway.config.accessToken = QStringLiteral("token of a new log-in");
    gateway.config.language = QStringLiteral("zh_CN");
    gateway.now = gateway.now.addDays(1);
    request.DoReset();
    EXPECT_EQ(request.GetCacheKey(), before);
}
