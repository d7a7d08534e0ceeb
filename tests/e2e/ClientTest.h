#pragma once

#include "ClientProcess.h"
#include "FaultyGateway.h"
#include "GatewayProcess.h"
#include "VirtualScreen.h"

#include <QtCore/QDateTime>
#include <QtCore/QJsonObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

/// The name of an event of the trace.
QString EventName(const QJsonObject& event);

/// The built client, the built gateway with the demo merchant, and between them a gateway that can be made
/// to fail.
class ClientTest : public ::testing::Test
{
protected:
    /// What the merchant chose, as the gateway's own command shows it.
    struct Expected
    {
        QStringList urls; ///< of the tabs that open, in order
        int openFirst = 0;
    };

    struct KeptRecord
    {
        QStringList routerUrls;
        int current = -1;
        QDateTime when;
    };

    void SetUp() override;

    void LogIn(const QStringList& arguments = {});
    /// Logs in and waits until the configured entries stand as tabs.
    void LogInAndOpen();
    bool WaitForTabInFront(int index);
    /// Waits until all that a kill may cost is over: what stands now, in this order and with this tab in
    /// front, is on the disk as this run of the client leaves it.
    bool WaitForKept();
    /// The records of the tabs on the disk: the module's, and the client's own.
    [[nodiscard]] KeptRecord ReadModulesRecord() const;
    [[nodiscard]] KeptRecord ReadClientsRecord() const;
    /// The session that the gateway gave at the last log-in; empty for none.
    [[nodiscard]] QJsonObject GetLoginReply() const;
    /// Waits for the question that a module puts before the user, and answers it with a key.
    bool AnswerQuestion(const QString& key);
    /// Waits for a bar whose text has this part.
    bool WaitForNotice(const QString& part);
    bool HasNotice(const QString& id) const;

    [[nodiscard]] QString GetProfile() const { return m_folder.filePath(QStringLiteral("profile")); }

    QTemporaryDir m_folder;
    VirtualScreen m_screen;
    std::unique_ptr<GatewayProcess> m_gateway;
    std::unique_ptr<FaultyGateway> m_front;
    std::unique_ptr<ClientProcess> m_client;
    Expected m_expected;
    void ReadExpectation();

private:
    QString AddressOfApp(const QString& serviceCode) const;
};
