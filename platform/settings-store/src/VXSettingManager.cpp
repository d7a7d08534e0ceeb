#include "settings-store/VXSettingManager.h"

#include "SettingDatabase.h"

#include "core/TLGlobalData.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLoggingCategory>
#include <QtSql/QSqlDatabase>

namespace {

Q_LOGGING_CATEGORY(logSettings, "tl.settings")

SettingKey UserKey(const QString& section, const QString& field)
{
    return {true, TLGlobalData::Instance()->GetPin(), section, field};
}

SettingKey GlobalKey(const QString& section, const QString& field)
{
    return {false, QString(), section, field};
}

} // namespace

VXSettingManager* VXSettingManager::Instance()
{
    static VXSettingManager instance;
    return &instance;
}

VXSettingManager::VXSettingManager() : m_database(std::make_unique<SettingDatabase>())
{
    // The thread has to end before statics are destroyed, on Windows even before `main` returns.
    qAddPostRoutine([] { Instance()->Close(); });
}

VXSettingManager::~VXSettingManager() = default;

bool VXSettingManager::Open(const QString& databaseFile)
{
    if (m_database->IsOpen()) {
        Close();
    }
    const SettingFileReport report = m_database->Open(databaseFile, [this](const SettingFileReport& later) {
        QMetaObject::invokeMethod(
            this, [this, later] { Tell(later); }, Qt::QueuedConnection);
    });
    Tell(report);
    return report.failure.isEmpty();
}

void VXSettingManager::Close()
{
    m_database->Close();
    // Delivers what the last write reported; the event loop may not run any more.
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
}

QString VXSettingManager::GetUserValue(const QString& section, const QString& field) const
{
    return m_database->GetValue(UserKey(section, field));
}

void VXSettingManager::SetUserValue(const QString& section, const QString& field, const QString& value)
{
    m_database->SetValue(UserKey(section, field), value);
}

bool VXSettingManager::SetUserValueSync(const QString& section, const QString& field, const QString& value)
{
    SetUserValue(section, field, value);
    return Flush();
}

QString VXSettingManager::GetGlobalValue(const QString& section, const QString& field) const
{
    return m_database->GetValue(GlobalKey(section, field));
}

void VXSettingManager::SetGlobalValue(const QString& section, const QString& field, const QString& value)
{
    m_database->SetValue(GlobalKey(section, field), value);
}

bool VXSettingManager::SetGlobalValueSync(const QString& section, const QString& field, const QString& value)
{
    SetGlobalValue(section, field, value);
    return Flush();
}

bool VXSettingManager::Flush()
{
    return m_database->Flush();
}

void VXSettingManager::Tell(const SettingFileReport& report)
{
    if (!report.setAsideFile.isEmpty()) {
        qCWarning(logSettings, "%ls Set aside as %ls", qUtf16Printable(report.setAsideReason),
                  qUtf16Printable(report.setAsideFile));
        Q_EMIT SigStoreSetAside(report.setAsideFile, report.setAsideReason);
    }
    for (const SettingKey& key : report.damagedValues) {
        qCWarning(logSettings, "Damaged value set aside: %ls / %ls", qUtf16Printable(key.section),
                  qUtf16Printable(key.field));
        Q_EMIT SigValueDamaged(key.user, key.section, key.field);
    }
    if (!report.failure.isEmpty()) {
        qCWarning(logSettings, "%ls", qUtf16Printable(report.failure));
        Q_EMIT SigStoreFailed(report.failure);
    }
}
