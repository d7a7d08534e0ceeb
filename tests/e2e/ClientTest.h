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

/// The name of an event in the trace.
QString EventName(const QJsonObject& event);

/// The built client, the built gateway with the demo merchant, and between them a gateway that a test can
/// make fail.
class ClientTest : public ::testing::Test
{
protected:
    /// The merchant's configuration, as the gateway's own command shows it.
    struct Expected
    {
        QStringList urls; ///< the tabs that open, in order
        int openFirst = 0;
    };

    struct TabsRecord
    {
        QStringList routerUrls;
        int current = -1;
        QDateTime when;
    };

    void SetUp() override;

    void LogIn(const QStringList& arguments = {});
    /// Logs in and waits until the configured entries have opened as tabs.
    void LogInAndOpen();
    bool WaitForTabInFront(int index);
    /// Waits until a kill would lose nothing: this run of the client has written the current tabs, their
    /// order and the tab in front to disk.
    bool WaitForRecord();
    /// The records of the tabs on disk: the module's and the client's own.
    [[nodiscard]] TabsRecord ReadModulesRecord() const;
    [[nodiscard]] TabsRecord ReadClientsRecord() const;
    /// The gateway's reply to the last log-in; empty when there is none.
    [[nodiscard]] QJsonObject GetLoginReply() const;
    /// Waits for a module's question and answers it with a key.
    bool AnswerQuestion(const QString& key);
    /// Waits for a notice whose text contains `part`.
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
