#pragma once

#include <QtCore/QString>

/// What the code of a finished call means to the client: gateway codes have four digits, those of the
/// transport are smaller.
namespace GatewayCodes {

inline const QString WrongPassword = QStringLiteral("2001");
inline const QString TooManyAttempts = QStringLiteral("2006");
inline const QString ClockOff = QStringLiteral("1006");

/// The call did not reach the gateway, or got no answer from it.
bool IsTransport(const QString& code);
/// The gateway says that it is its own fault.
bool IsServer(const QString& code);
/// The answer is not the gateway's: something in between gave it, or it was cut off.
bool IsUnreadable(const QString& code);
/// The gateway is out of reach: network or server failed, or what answers is not the gateway.
bool IsUnreachable(const QString& code);
/// The gateway does not accept the access token, or no longer does.
bool IsSessionRefused(const QString& code);
/// The gateway does not know this client: app key or signature.
bool IsClientRefused(const QString& code);

} // namespace GatewayCodes
