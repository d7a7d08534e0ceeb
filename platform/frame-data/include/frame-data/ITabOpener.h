#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/QString>
#include <QtCore/qglobal.h>

struct PluginOpenInfo;
struct TabOpenInfo;

/// Opens tabs on behalf of `TLRouter`. The client provides it through `Provided<ITabOpener>`. GUI thread.
///
/// Every opening adds exactly one tab, at once and in call order, because callers count positions: an opening
/// that cannot succeed (unknown app, refused address) adds a tab that says why.
class TL_FRAME_DATA_EXPORT ITabOpener
{
public:
    virtual ~ITabOpener();

    /// `index` is the new tab's position; -1 or one beyond the last opens it at the end.
    virtual void OpenPlugin(const PluginOpenInfo& info, int index) = 0;
    virtual void OpenUrl(const TabOpenInfo& info, int index) = 0;

    static ITabOpener* Provided() noexcept;
    static void Provide(ITabOpener* opener) noexcept;

protected:
    ITabOpener() = default;
    Q_DISABLE_COPY(ITabOpener)
};
