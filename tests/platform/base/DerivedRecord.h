#pragma once

#include "SampleRecord.h"

/// Adds a field to those of its base, and declares one of them again.
class DerivedRecord final : public SampleRecord
{
    Q_OBJECT
    Q_PROPERTY(QString extra MEMBER extra)
    Q_PROPERTY(QString number MEMBER numberAsText)

public:
    QString extra;
    QString numberAsText;
};
