#include "ClientMemory.h"

#include "settings-store/VXSettingManager.h"

#include <QtCore/QUuid>

namespace {

const QString Section = QStringLiteral("CLIENT");
const QString DeviceIdField = QStringLiteral("DEVICE_ID");
const QString LastPinField = QStringLiteral("LAST_PIN");
const QString ThemeField = QStringLiteral("THEME");
const QString LanguageField = QStringLiteral("LANGUAGE");
const QString GeometryField = QStringLiteral("WINDOW_GEOMETRY");
const QString ScaleField = QStringLiteral("SCALE");
const QString SettingsGeometryField = QStringLiteral("SETTINGS_GEOMETRY");
const QString SettingsPageField = QStringLiteral("SETTINGS_PAGE");
const QString SessionEndField = QStringLiteral("SESSION_END");

QString Get(const QString& field)
{
    return VXSettingManager::Instance()->GetGlobalValue(Section, field);
}

void Set(const QString& field, const QString& value)
{
    VXSettingManager::Instance()->SetGlobalValue(Section, field, value);
}

} // namespace

QString ClientMemory::GetDeviceId()
{
    QString id = Get(DeviceIdField);
    if (id.isEmpty()) {
        id = QUuid::createUuid().toString(QUuid::WithoutBraces);
        // Tokens are bound to it, so it must survive even if the client is killed early.
        if (!VXSettingManager::Instance()->SetGlobalValueSync(Section, DeviceIdField, id)) {
            qWarning("the device id could not be stored");
        }
    }
    return id;
}

QString ClientMemory::GetLastPin()
{
    return Get(LastPinField);
}

void ClientMemory::SetLastPin(const QString& pin)
{
    Set(LastPinField, pin);
}

Theme ClientMemory::GetTheme()
{
    switch (Get(ThemeField).toInt()) {
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
    Set(ThemeField, QString::number(static_cast<int>(theme)));
}

QString ClientMemory::GetLanguage()
{
    return Get(LanguageField);
}

void ClientMemory::SetLanguage(const QString& language)
{
    Set(LanguageField, language);
}

QByteArray ClientMemory::GetWindowGeometry()
{
    return QByteArray::fromBase64(Get(GeometryField).toLatin1());
}

void ClientMemory::SetWindowGeometry(const QByteArray& geometry)
{
    Set(GeometryField, QString::fromLatin1(geometry.toBase64()));
}

int ClientMemory::GetScale()
{
    const int scale = Get(ScaleField).toInt();
    return scale > 0 ? scale : 100;
}

void ClientMemory::SetScale(int scale)
{
    Set(ScaleField, QString::number(scale));
}

QByteArray ClientMemory::GetSettingsGeometry()
{
    return QByteArray::fromBase64(Get(SettingsGeometryField).toLatin1());
}

void ClientMemory::SetSettingsGeometry(const QByteArray& geometry)
{
    Set(SettingsGeometryField, QString::fromLatin1(geometry.toBase64()));
}

QString ClientMemory::GetSettingsPage()
{
    return Get(SettingsPageField);
}

void ClientMemory::SetSettingsPage(const QString& page)
{
    Set(SettingsPageField, page);
}

void ClientMemory::SetSessionEnd(const QString& code)
{
    Set(SessionEndField, code);
}

QString ClientMemory::TakeSessionEnd()
{
    QString code = Get(SessionEndField);
    if (!code.isEmpty()) {
        Set(SessionEndField, QString());
    }
    return code;
}
