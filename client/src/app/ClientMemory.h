#pragma once

#include "login/LoginProblem.h"

#include "look/Theme.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// What the client itself remembers between runs, in the settings store, for all users of the profile.
/// GUI thread.
class ClientMemory final
{
public:
    ClientMemory() = delete;

    /// Identifies this client profile as a device. The first call creates it; it never changes.
    static QString GetDeviceId();

    /// The account that signed in last; empty before the first log-in.
    static QString GetLastPin();
    static void SetLastPin(const QString& pin);

    static Theme GetTheme();
    static void SetTheme(Theme theme);

    /// Empty until the user chooses one.
    static QString GetLanguage();
    static void SetLanguage(const QString& language);

    /// [%]; 100 until the user chooses one.
    static int GetScale();
    static void SetScale(int scale);

    static QByteArray GetWindowGeometry();
    static void SetWindowGeometry(const QByteArray& geometry);

    static QByteArray GetSettingsGeometry();
    static void SetSettingsGeometry(const QByteArray& geometry);
    /// The settings page that was shown last.
    static QString GetSettingsPage();
    static void SetSettingsPage(const QString& page);

    /// Tells the next process why the session ended, as the gateway's code.
    static void SetSessionEnd(const QString& code);
    /// Returns and removes the code that the previous process left; empty if the user ended the session.
    static QString TakeSessionEnd();
};
