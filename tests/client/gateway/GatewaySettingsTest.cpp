#include "gateway/GatewaySettings.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

class GatewaySettingsTest : public ::testing::Test
{
protected:
    QString Write(const char* name, const QByteArray& content)
    {
        const QString path = m_folder.filePath(QLatin1String(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return path;
    }

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QString m_problem;
};

TEST_F(GatewaySettingsTest, WithoutAFileTheDevelopmentGatewayIsUsed)
{
    const auto settings =
        GatewaySettings::Load({m_folder.filePath(QStringLiteral("none.ini"))}, m_environment, &m_problem);
    EXPECT_EQ(settings.address, QUrl(QStringLiteral("http://127.0.0.1:8087/gateway")));
    EXPECT_EQ(settings.appKey, QStringLiteral("tl-client"));
    EXPECT_EQ(settings.appSecret, QStringLiteral("tl-client-development-secret"));
    EXPECT_TRUE(m_problem.isEmpty());
}

TEST_F(GatewaySettingsTest, FirstFileThatExistsCounts)
{
    const QString first = Write("first.ini", "[gateway]\naddress=https://one.example\napp_key=k1\n");
    const QString second = Write("second.ini", "[gateway]\naddress=https://two.example\napp_secret=s2\n");
    const auto settings = GatewaySettings::Load(
        {m_folder.filePath(QStringLiteral("none.ini")), first, second}, m_environment, &m_problem);
    EXPECT_EQ(settings.address, QUrl(QStringLiteral("https://one.example/gateway")));
    EXPECT_EQ(settings.appKey, QStringLiteral("k1"));
    EXPECT_EQ(settings.appSecret, QStringLiteral("tl-client-development-secret"));
}

TEST_F(GatewaySettingsTest, EnvironmentWinsOverTheFile)
{
    const QString file = Write("client.ini", "[gateway]\napp_key=k\napp_secret=s\n");
    m_environment.insert(QStringLiteral("TL_GATEWAY_APP_KEY"), QStringLiteral("key"));
    m_environment.insert(QStringLiteral("TL_GATEWAY_APP_SECRET"), QStringLiteral("hidden"));
    const auto settings = GatewaySettings::Load({file}, m_environment, &m_problem);
    EXPECT_EQ(settings.appKey, QStringLiteral("key"));
    EXPECT_EQ(settings.appSecret, QStringLiteral("hidden"));
}

TEST_F(GatewaySettingsTest, DomainsAreAListInFileAndEnvironment)
{
    EXPECT_EQ(GatewaySettings::Load({}, m_environment, &m_problem).domains,
              QStringList(QStringLiteral("vx.example")));
    const QString file = Write("client.ini", "[gateway]\ndomains=one.example,two.example\n");
    const QStringList two{QStringLiteral("one.example"), QStringLiteral("two.example")};
    EXPECT_EQ(GatewaySettings::Load({file}, m_environment, &m_problem).domains, two);
    m_environment.insert(QStringLiteral("TL_GATEWAY_DOMAINS"), QStringLiteral("three.example"));
    EXPECT_EQ(GatewaySettings::Load({file}, m_environment, &m_problem).domains,
              QStringList(QStringLiteral("three.example")));
}

TEST_F(GatewaySettingsTest, InvalidAddressInTheFileIsAProblem)
{
    const QString file = Write("client.ini", "[gateway]\naddress=gopher://old\n");
    GatewaySettings::Load({file}, m_environment, &m_problem);
    EXPECT_TRUE(m_problem.contains(QStringLiteral("gopher://old"))) << m_problem.toStdString();
    EXPECT_TRUE(m_problem.contains(QStringLiteral("client.ini"))) << m_problem.toStdString();
}

TEST_F(GatewaySettingsTest, PathOfAnAddressStays)
{
    EXPECT_EQ(GatewaySettings::ToAddress(QStringLiteral("http://h/behind/proxy")),
              QUrl(QStringLiteral("http://h/behind/proxy")));
    EXPECT_EQ(GatewaySettings::ToAddress(QStringLiteral("http://h/")),
              QUrl(QStringLiteral("http://h/gateway")));
}
