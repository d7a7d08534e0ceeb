#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>

struct PluginOpenInfo;

/// Opens pages and apps in tabs, through the provided `ITabOpener`; without one, nothing happens but a
/// warning in the log. Every call adds exactly one tab before it returns. GUI thread.
class TL_FRAME_DATA_EXPORT TLRouter final
{
public:
    TLRouter() = delete;

    /// Opens the app with the key `info.serviceCode`. `index` is the new tab's position, -1: at the end.
    static void OpenPlugin(const PluginOpenInfo& info, int index);

    /// Opens a web page. `closable`: the user can close the tab. `isDelay`: it loads when first selected.
    /// `index`: its position, -1 at the end. `activate`: bring it to the front. `title`: shown until the
    /// page says its own, may be empty. `remember`: it can be reopened after an end of the client.
    static void OpenUrlWithNewTab(const QString& address, bool closable, bool isDelay, int index,
                                  bool activate, const QString& title, bool remember);
};
