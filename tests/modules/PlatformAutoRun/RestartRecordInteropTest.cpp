#include "TLRestartManager.h"

#include "TabRecordTest.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

#include <gtest/gtest.h>

namespace {

class RestartRecordInteropTest : public TabRecordTest
{
protected:
    /// What the script makes of `input`; empty after a failure.
    static QByteArray Run(const QString& action, const QByteArray& input)
    {
        QProcess script;
        script.start(QStringLiteral(TL_PYTHON), {QStringLiteral(TL_RESTART_RECORD_SCRIPT), action});
        script.write(input);
        script.closeWriteChannel();
        if (!script.waitForFinished()) {
            ADD_FAILURE() << qUtf8Printable(script.errorString());
            return {};
        }
        const QByteArray errors = script.readAllStandardError();
        const bool succeeded = script.exitStatus() == QProcess::NormalExit && script.exitCode() == 0;
        EXPECT_TRUE(succeeded) << errors.constData();
        return succeeded ? script.readAllStandardOutput() : QByteArray();
    }

    const QStringList urls{
        QStringLiteral("tl://browser/open?url=https%3A%2F%2Fz.example.com%2F%3Fq%3D%E4%B8%AD"),
        QStringLiteral("tl://plugin/open?code=stock"),
        QString::fromUtf8("tl://plugin/open?code=\xE8\xB4\xA6\xE6\x9C\xAC\xF0\x9F\x9B\x92"),
        QStringLiteral("tl://plugin/open?code=stock")};
    const QString belongType = QString::fromUtf8("\xE5\x95\x86\xE5\xAE\xB6");
};

} // namespace

TEST_F(RestartRecordInteropTest, PyQtReadsWhatTheModuleWrote)
{
    for (const QString& url : urls) {
        AddTab(3, url);
    }
    SetBelongTypeOfUser(belongType);
    TLRestartManager::Instance()->Save(QString());

    const QJsonObject read =
        QJsonDocument::fromJson(Run(QStringLiteral("read"), GetRestartText().toUtf8())).object();
    const QJsonObject expected{{QStringLiteral("routerUrls"), QJsonArray::fromStringList(urls)},
                               {QStringLiteral("belongType"), belongType}};
    EXPECT_EQ(read, expected);
}

TEST_F(RestartRecordInteropTest, ModuleRestoresWhatPyQtWrote)
{
    const QJsonObject content{{QStringLiteral("routerUrls"), QJsonArray::fromStringList(urls.mid(0, 2))},
                              {QStringLiteral("belongType"), belongType}};
    SetRestartText(QString::fromUtf8(
        Run(QStringLiteral("write"), QJsonDocument(content).toJson(QJsonDocument::Compact))));
    SetBelongTypeOfUser(belongType);
    TLRestartManager::Instance()->Restore();
    EXPECT_EQ(routes.GetExecuted(), urls.mid(0, 2));
    EXPECT_EQ(GetRestartText(), QString());
}

TEST_F(RestartRecordInteropTest, PyQtWritesTheVeryTextThatTheModuleWrites)
{
    for (const QString& url : urls) {
        AddTab(3, url);
    }
    TLRestartManager::Instance()->Save(QString());
    const QJsonObject content{{QStringLiteral("routerUrls"), QJsonArray::fromStringList(urls)},
                              {QStringLiteral("belongType"), QStringLiteral("merchant")}};
    EXPECT_EQ(Run(QStringLiteral("write"), QJsonDocument(content).toJson(QJsonDocument::Compact)),
              GetRestartText().toUtf8());
}
