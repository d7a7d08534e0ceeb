#include "TabRecordTest.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"
#include "tab-container/TabData.h"

#include <QtCore/QFile>

#include <stdexcept>

namespace {

// Spelled out once more, since they stand on users' machines.
const QString RecoverSection = QStringLiteral("USER_SETTING_RECOVER_SECTION");
const QString RecoverField = QStringLiteral("USER_SETTING_RECOVER_FIELD1");
const QString RestartSection = QStringLiteral("USER_SETTING_RESTART_SECTION");
const QString RestartField = QStringLiteral("USER_SETTING_RESTART_FIELD");

} // namespace

TabRecordTest::TabRecordTest() = default;

TabRecordTest::~TabRecordTest() = default;

void TabRecordTest::AddTab(int type, const QString& routerUrl)
{
    browser.AddTab(QSharedPointer<TabData>::create(type, TitleOf(routerUrl), IconOf(routerUrl)), routerUrl);
}

void TabRecordTest::AddTabWithoutData(const QString& routerUrl)
{
    browser.AddTab({}, routerUrl);
}

QString TabRecordTest::TitleOf(const QString& routerUrl)
{
    return QStringLiteral("Title of ") + routerUrl;
}

QString TabRecordTest::IconOf(const QString& routerUrl)
{
    return QStringLiteral("https://icons.example.com/?of=") + routerUrl;
}

void TabRecordTest::SignOut()
{
    TLGlobalData::Instance()->ClearUser();
}

void TabRecordTest::SetBelongTypeOfUser(const QString& belongType)
{
    generalData.GetUserData()->Set(generalData.GetUserData()->GetPin(), belongType);
}

QString TabRecordTest::GetRecoverText()
{
    return VXSettingManager::Instance()->GetUserValue(RecoverSection, RecoverField);
}

void TabRecordTest::SetRecoverText(const QString& text)
{
    VXSettingManager::Instance()->SetUserValue(RecoverSection, RecoverField, text);
}

QString TabRecordTest::GetRestartText()
{
    return VXSettingManager::Instance()->GetUserValue(RestartSection, RestartField);
}

void TabRecordTest::SetRestartText(const QString& text)
{
    VXSettingManager::Instance()->SetUserValue(RestartSection, RestartField, text);
}

QByteArray TabRecordTest::ReadSample(const char* name)
{
    QFile file(QStringLiteral(TL_AUTORUN_TEST_DATA "/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error(file.errorString().toStdString());
    }
    return file.readAll();
}
