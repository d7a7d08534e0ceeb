#include "gateway/GatewayCodes.h"

#include "http/HttpError.h"

namespace {

bool IsBetween(const QString& code, int first, int last)
{
    bool isNumber = false;
    const int number = code.toInt(&isNumber);
    return isNumber && number >= first && number <= last;
}

} // namespace

bool GatewayCodes::IsTransport(const QString& code)
{
    return code != QLatin1String("0") && IsBetween(code, -999, 999);
}

bool GatewayCodes::IsServer(const QString& code)
{
    return IsBetween(code, 5000, 5999);
}

bool GatewayCodes::IsUnreadable(const QString& code)
{
    return code == QLatin1String("parse") || code == QString::number(static_cast<int>(HttpError::TooLarge)) ||
           code == QString::number(static_cast<int>(HttpError::Redirect));
}

bool GatewayCodes::IsUnreachable(const QString& code)
{
    return IsTransport(code) || IsServer(code) || IsUnreadable(code);
}

bool GatewayCodes::IsSessionRefused(const QString& code)
{
    return IsBetween(code, 2002, 2005);
}

bool GatewayCodes::IsClientRefused(const QString& code)
{
    return IsBetween(code, 1002, 1004);
}
