#pragma once

#include "FuzzTarget.h"

#include <QtCore/QByteArray>

/// Reads the bytes as a JSON record of class `Record`: writing the record and reading it again must give the
/// same record.
template <class Record>
void FuzzJsonRecord(const uint8_t* data, size_t size)
{
    Record first;
    first.Parse(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));

    const QByteArray written = first.ToJson();
    Record second;
    Require(second.Parse(written), "what was read can be written and read again");
    // Qt treats a U+FEFF at the beginning of a text as a byte order mark and drops it.
    const auto withoutMarks = [](QByteArray json) { return json.replace("\xEF\xBB\xBF", ""); };
    Require(withoutMarks(second.ToJson()) == withoutMarks(written), "and is the same then");
}
