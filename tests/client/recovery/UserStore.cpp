#include "UserStore.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QDir>

#include <gtest/gtest.h>

UserStore::UserStore()
{
    EXPECT_TRUE(VXSettingManager::Instance()->Open(m_folder.filePath(QStringLiteral("0/settings.sqlite"))));
    SignIn(QStringLiteral("demo"));
}

UserStore::~UserStore()
{
    SignIn(QString());
    VXSettingManager::Instance()->Close();
}

void UserStore::SignIn(const QString& pin)
{
    TLGlobalData::Instance()->SetUser(pin, pin.isEmpty() ? QString() : QStringLiteral("merchant"));
}

bool UserStore::KillAndReopen()
{
    // The files as a killed process leaves them, without what the store had yet to write.
    const QDir before(m_folder.filePath(QString::number(m_round)));
    const QDir after(m_folder.filePath(QString::number(++m_round)));
    bool copied = after.mkpath(QStringLiteral("."));
    const QStringList names = before.entryList(QDir::Files);
    for (const QString& name : names) {
        if (name.startsWith(QLatin1String("settings.sqlite")) && !name.endsWith(QLatin1String("lock"))) {
            copied = QFile::copy(before.filePath(name), after.filePath(name)) && copied;
        }
    }
    VXSettingManager::Instance()->Close();
    return copied && VXSettingManager::Instance()->Open(after.filePath(QStringLiteral("settings.sqlite")));
}
