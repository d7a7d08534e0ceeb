#pragma once

#include "frame-core/FrameCoreExport.h"

#include <QtCore/QSharedPointer>
#include <QtCore/QString>

class TabData;

/// One tab of the main browser, which owns it. Valid until control returns to the event loop.
class TL_FRAME_CORE_EXPORT IBrowserTab
{
public:
    virtual ~IBrowserTab();

    /// The tab's title, icon and kind; null when it has none of them.
    virtual QSharedPointer<TabData> GetTabData() const = 0;
    /// The router URL that reopens this tab; empty for a tab that cannot be reopened.
    virtual QString GetRouterUrl() const = 0;

protected:
    IBrowserTab() = default;
    Q_DISABLE_COPY(IBrowserTab)
};
