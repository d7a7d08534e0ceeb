#pragma once

#include "recovery/TabSet.h"

#include <QtCore/QString>

/// The stored form of `TabSet`: lines of JSON, the first about all of them ("version", "when", "current",
/// "count"), then one per tab ("url", "title", "icon", "type"). What is damaged costs the lines that it
/// hits and nothing else. Works on any thread.
namespace TabSetText {

struct Reading
{
    TabSet tabs;
    bool whole = true; ///< false: the text is damaged, `tabs` is what could be read of it
};

/// Empty for no tabs.
QString Write(const TabSet& tabs);
/// Never fails: an empty text is no tabs. Takes only tabs that open a page or an app.
Reading Read(const QString& text);

} // namespace TabSetText
