#include "ClientMemory.h"

#include "settings-store/VXSettingManager.h"

#include <QtCore/QUuid>

namespace {

const QString section = QStringLiteral("CLIENT");
const QString deviceIdField = QStringLiteral("DEVICE_ID");
const QString lastPinField = QStringLiteral("LAST_PIN");
const QString themeField = QStringLiteral("THEME");
const QString languageField = QStringLiteral("LANGUAGE");
const QString geometryField = QStringLiteral("WINDOW_GEOMETRY");
const QString scaleField = QStringLiteral("SCALE");
const QString settingsGeometryField = QStringLiteral("SETTINGS_GEOMETRY");
const QString settingsPageField = QStringLiteral("SETTINGS_PAGE");
const QString sessionEndField = QStringLiteral("SESSION_END");

QString Get(const QString& field)
{
    return VXSettingManager::Instance()->GetGlobalValue(section, field);
}

void Set(const QString& field, const QString& value)
{
    VXSettingManager::Instance()->SetGlobalValue(section, field, value);
}

} // namespace

QString ClientMemory::GetDeviceId()
{
    QString id = Get(deviceIdField);
    if (id.isEmpty()) {
        id = QUuid::createUuid().toString(QUuid::WithoutBraces);
        // Tokens are bound to it, so it must survive even if the client is killed early.
        if (!VXSettingManager::Instance()->SetGlobalValueSync(section, deviceIdField, id)) {
            qWarning("the device id could not be stored");
        }
    }
    return id;
}

QString ClientMemory::GetLastPin()
{
    return Get(lastPinField);
}

void ClientMemory::SetLastPin(const QString& pin)
{
    Set(lastPinField, pin);
}

Theme ClientMemory::GetTheme()
{
    switch (Get(themeField).toInt()) {
    case static_cast<int>(Theme::Light):
        return Theme::Light;
    case static_cast<int>(Theme::Dark):
        return Theme::Dark;
    default:
        return Theme::FollowSystem;
    }
}

void ClientMemory::SetTheme(Theme theme)
{
    Set(themeField, QString::number(static_cast<int>(theme)));
}

QString ClientMemory::GetLanguage()
{
    return Get(languageField);
}

void ClientMemory::SetLanguage(const QString& language)
{
    Set(languageField, language);
}

QByteArray ClientMemory::GetWindowGeometry()
{
    return QByteArray::fromBase64(Get(geometryField).toLatin1());
}

void ClientMemory::SetWindowGeometry(const QByteArray& geometry)
{
    Set(geometryField, QString::fromLatin1(geometry.toBase64()));
}

int ClientMemory::GetScale()
{
    const int scale = Get(scaleField).toInt();
    return scale > 0 ? scale : 100;
}

void ClientMemory::SetScale(int scale)
{
    Set(scaleField, QString::number(scale));
}

QByteArray ClientMemory::GetSettingsGeometry()
{
    return QByteArray::fromBase64(Get(settingsGeometryField).toLatin1());
}

void ClientMemory::SetSettingsGeometry(const QByteArray& geometry)
{
    Set(settingsGeometryField, QString::fromLatin1(geometry.toBase64()));
}

QString ClientMemory::GetSettingsPage()
{
    return Get(settingsPageField);
}

void ClientMemory::SetSettingsPage(const QString& page)
{
    Set(settingsPageField, page);
}

void ClientMemory::SetSessionEnd(const QString& code)
{
    Set(sessionEndField, code);
}

QString ClientMemory::TakeSessionEnd()
{
    QString code = Get(sessionEndField);
    if (!code.isEmpty()) {
        Set(sessionEndField, QString());
    }
    return code;
}
