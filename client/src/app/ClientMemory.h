#pragma once

#include "login/LoginProblem.h"

#include "look/Theme.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// What the client itself remembers from one run to the next, in the settings store, for all users of the
/// profile. GUI thread.
class ClientMemory final
{
public:
    ClientMemory() = delete;

    /// The identifier of this client profile as a device; made on the first call and the same ever after.
    static QString GetDeviceId();

    /// The account that signed in last; empty before the first.
    static QString GetLastPin();
    static void SetLastPin(const QString& pin);

    static Theme GetTheme();
    static void SetTheme(Theme theme);

    /// Empty before the user chose one.
    static QString GetLanguage();
    static void SetLanguage(const QString& language);

    /// [%]; 100 before the user chose one.
    static int GetScale();
    static void SetScale(int scale);

    static QByteArray GetWindowGeometry();
    static void SetWindowGeometry(const QByteArray& geometry);

    static QByteArray GetSettingsGeometry();
    static void SetSettingsGeometry(const QByteArray& geometry);
    /// The page of the settings that was shown last.
    static QString GetSettingsPage();
    static void SetSettingsPage(const QString& page);

    /// For the process that comes after this one: why the session ended, as the gateway's code.
    static void SetSessionEnd(const QString& code);
    /// The code left by the process before, once; empty when the user ended the session.
    static QString TakeSessionEnd();
};
