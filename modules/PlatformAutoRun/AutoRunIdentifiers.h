#pragma once

#include <QtCore/QString>

/// Texts and numbers by which this module, the client and the service know each other's things. None of
/// them is a secret, and none may change: they are stored, sent and compared.
namespace AutoRunIdentifiers {

/// The module's key in the plug-in metadata, and the sender of its module events.
inline QString ModuleKey()
{
    return QStringLiteral("PlatformAutoRun");
}

/// The `itemId` of the home page's entry.
inline QString HomeItemId()
{
    return QStringLiteral("FA2F7923-A7F9-4703-8255-B3218DFF6062");
}

/// The identity under which the settings page reads the configuration, to recognise its own completion.
inline QString SettingPageIdentity()
{
    return QStringLiteral("6844BE03-D3FF-4ADC-9E01-005CEC79F162");
}

/// Notifications on the host's hub; both carry the request and the response.
inline constexpr int ReadFinished = 10400;
inline constexpr int WriteFinished = 10401;

/// Module events, sent right after the notification of the same end; they have no arguments.
inline QString ReadFinishedEvent()
{
    return QStringLiteral("GetAutoRun");
}
inline QString WriteFinishedEvent()
{
    return QStringLiteral("SetAutoRun");
}

} // namespace AutoRunIdentifiers
