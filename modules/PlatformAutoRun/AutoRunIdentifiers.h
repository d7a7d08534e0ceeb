#pragma once

#include <QtCore/QString>

/// The texts and numbers that this module shares with the client and the service. None of them is a secret,
/// and none may change: they are stored, sent and compared.
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

/// The identity of the settings page's reads, by which it recognises its own completion.
inline QString SettingPageIdentity()
{
    return QStringLiteral("6844BE03-D3FF-4ADC-9E01-005CEC79F162");
}

/// Notifications on the host's hub; both carry the request and the response.
inline constexpr int ReadFinished = 10400;
inline constexpr int WriteFinished = 10401;

/// Module events without arguments, each sent right after the notification of the same completion.
inline QString ReadFinishedEvent()
{
    return QStringLiteral("GetAutoRun");
}
inline QString WriteFinishedEvent()
{
    return QStringLiteral("SetAutoRun");
}

} // namespace AutoRunIdentifiers
