#pragma once

#include "base/VXJsonParserBase.h"

/// A record of two fields.
class FakeRecord final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER m_name)
    Q_PROPERTY(int count MEMBER m_count)

public:
    QString m_name;
    int m_count = 0;
};
