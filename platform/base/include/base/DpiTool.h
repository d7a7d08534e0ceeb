#pragma once

#include "base/BaseExport.h"

class QWindow;

/// The scale of the user interface: the user's choice times what the screen of the main window asks for. What
/// Qt scales by itself (the screen's device pixel ratio) is not part of it. The client sets both; everyone
/// else reads the scale and hears of changes as an `IDpiAdapter`. GUI thread.
class TL_BASE_EXPORT DpiTool final
{
public:
    DpiTool() = delete;

    /// [px, unscaled] to [px] at the current scale, rounded to the nearest integer, halves away from zero.
    static int ScaleDefault(int pixels) noexcept;

    /// The current scale; 1 until something else is set.
    static double GetScale() noexcept;

    /// Sets the user's choice; 1 is 100 %. Limits it to the range of 0.5 to 4 and ignores what is not a
    /// number. Returns when all adapters have adjusted themselves, in the order in which they were made;
    /// calls none when the scale stays the same. An adapter may set the scale in turn; the last one set
    /// holds.
    static void SetScale(double scale);

    /// Sets the logical resolution [dots per inch] of the main window's screen, as
    /// `QScreen::logicalDotsPerInch` gives it; `ToScreenScale` makes a scale of it. Otherwise like
    /// `SetScale`.
    static void SetScreenDpi(double dotsPerInch);

    /// The scale that a screen of this resolution [dots per inch] asks for, in steps of a quarter, from 1
    /// to 4.
    static double ToScreenScale(double dotsPerInch) noexcept;

    /// Calls `SetScreenDpi` for the window's screen now, and whenever the window moves to another screen or
    /// its screen changes, for as long as the window lives. The last call counts; null stops following. The
    /// scale then stays as it is.
    static void FollowScreenOf(QWindow* window);
};
