#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>

struct PluginOpenInfo;

/// Opens pages and apps in tabs, through the provided `ITabOpener`. Every call adds exactly one tab before it
/// returns; while no opener is provided, a call only logs a warning. GUI thread.
class TL_FRAME_DATA_EXPORT TLRouter final
{
public:
    TLRouter() = delete;

    /// Opens the app with the key `info.serviceCode`. `index` is the new tab's position; -1 opens it at the
    /// end.
    static void OpenPlugin(const PluginOpenInfo& info, int index);

    /// Opens a web page. `closable`: the user can close the tab. `isDelay`: the page loads when the tab is
    /// first selected. `index`: the tab's position; -1 opens it at the end. `activate`: brings the tab to the
    /// front. `title`: shown until the page has its own; may be empty. `remember`: the tab can be reopened
    /// after the client has ended.
    static void OpenUrlWithNewTab(const QString& address, bool closable, bool isDelay, int index,
                                  bool activate, const QString& title, bool remember);
};
