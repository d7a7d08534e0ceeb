#pragma once

#include "FuzzTarget.h"

#include <QtCore/QByteArray>

/// Reads the bytes as a JSON record of class `Record`: what was read must be writable, and the same when it
/// is read again.
template <class Record>
void FuzzJsonRecord(const uint8_t* data, size_t size)
{
    Record first;
    first.Parse(QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));

    const QByteArray written = first.ToJson();
    Record second;
    Require(second.Parse(written), "what was read can be written and read again");
    // Qt takes a U+FEFF at the beginning of a text for a byte order mark and leaves it out.
    const auto withoutMarks = [](QByteArray json) { return json.replace("\xEF\xBB\xBF", ""); };
    Require(withoutMarks(second.ToJson()) == withoutMarks(written), "and is the same then");
}
