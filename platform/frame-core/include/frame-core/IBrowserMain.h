#pragma once

#include "frame-core/FrameCoreExport.h"

#include <QtCore/qglobal.h>

class IBrowserTab;
class QWidget;

/// The main browser: the window with the tabs. The client provides it through `Provided<IBrowserMain>` while
/// the window lives. Tab 0 is the home tab. GUI thread.
class TL_FRAME_CORE_EXPORT IBrowserMain
{
public:
    virtual ~IBrowserMain();

    virtual int GetTabCount() const = 0;
    /// Brings the tab to the front; ignores an index out of range.
    virtual void SelectTab(int index) = 0;
    /// Null when the index is out of range.
    virtual IBrowserTab* GetTab(int index) const = 0;
    /// The top-level widget, owned by the browser.
    virtual QWidget* GetMainWidget() const = 0;

    /// The main browser, or null while none exists.
    static IBrowserMain* GetBrowser() noexcept;

    static IBrowserMain* Provided() noexcept;
    static void Provide(IBrowserMain* browser) noexcept;

protected:
    IBrowserMain() = default;
    Q_DISABLE_COPY(IBrowserMain)
};
