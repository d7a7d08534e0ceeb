#pragma once

#include "base/VXJsonParserBase.h"

/// A record with a property of every type that the base handles, and some that it must leave alone.
class SampleRecord : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(bool flag MEMBER flag)
    Q_PROPERTY(int number MEMBER number)
    Q_PROPERTY(double real MEMBER real)
    Q_PROPERTY(qint64 big MEMBER big)
    Q_PROPERTY(QStringList texts MEMBER texts)
    Q_PROPERTY(QVariantMap unknown MEMBER unknown)
    Q_PROPERTY(Colour colour MEMBER colour)
    Q_PROPERTY(int readOnly READ ReadOnly)

public:
    enum Colour
    {
        Red,
        Green,
    };
    Q_ENUM(Colour)

    using VXJsonParserBase::VXJsonParserBase;

    int ReadOnly() const { return 7; }

    QString text = QStringLiteral("initial");
    bool flag = false;
    int number = -1;
    double real = 0.5;
    qint64 big = -2;
    QStringList texts = {QStringLiteral("one")};
    QVariantMap unknown = {{QStringLiteral("a"), 1}};
    Colour colour = Green;
};
