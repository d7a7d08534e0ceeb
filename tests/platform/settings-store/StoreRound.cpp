#include "StoreRound.h"

QString StoreRound::GetSection()
{
    return QStringLiteral("section");
}

QString StoreRound::GetField(int step)
{
    return QStringLiteral("field %1").arg(step % FieldCount);
}

// From some bytes to some pages.
QString StoreRound::GetValue(int step)
{
    return QStringLiteral("%1;").arg(step).repeated(1 + step * 37 % 4001);
}

int StoreRound::GetStep(const QString& value)
{
    bool ok = false;
    const int step = value.section(QLatin1Char(';'), 0, 0).toInt(&ok);
    return ok && value == GetValue(step) ? step : -1;
}
