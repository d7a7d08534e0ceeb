#include "AutoRunTest.h"

#include "PlatformAutoRun.h"
#include "TLAutoRunLogic.h"
#include "TLRecoverManager.h"
#include "TLRestartManager.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

AutoRunTest::AutoRunTest()
{
    TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
    TLGlobalData::Instance()->SetUUID(QStringLiteral("device-1"));
    generalData.GetUserData()->Set(QStringLiteral("demo"), QStringLiteral("merchant"));
}

AutoRunTest::~AutoRunTest()
{
    PlatformAutoRun::ReleaseInstance();
    TLAutoRunLogic::ReleaseInstance();
    TLRecoverManager::ReleaseInstance();
    TLRestartManager::ReleaseInstance();
    TLGlobalData::Instance()->ClearUser();
    VXSettingManager::Instance()->Close(); // which forgets what was stored
}

void AutoRunTest::ReadConfiguration(const QByteArray& systemItems, const QByteArray& customItems,
                                    const QByteArray& pluginItems)
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());
    AnswerConfiguration(systemItems, customItems, pluginItems);
}

void AutoRunTest::AnswerConfiguration(const QByteArray& systemItems, const QByteArray& customItems,
                                      const QByteArray& pluginItems)
{
    http.Answer(LastCall(), R"({"systemItems":[)" + systemItems + R"(],"customItems":[)" + customItems +
                                R"(],"pluginItems":[)" + pluginItems + "]}");
}

int AutoRunTest::LastCall() const
{
    return http.GetCallCount() - 1;
}
