#pragma once

#include "base/BaseExport.h"

class QWindow;

/// The scale of the user interface: what the user chose, times what the window's screen asks for. What Qt
/// scales by itself (the screen's device pixel ratio) is no part of it. The client says both; everybody else
/// reads, and hears of changes as an `IDpiAdapter`. GUI thread.
class TL_BASE_EXPORT DpiTool final
{
public:
    DpiTool() = delete;

    /// [px, unscaled] to [px] at the present scale, rounded to the nearest; a half away from zero.
    static int ScaleDefault(int pixels) noexcept;

    /// The present scale; 1 until something else is set.
    static double GetScale() noexcept;

    /// The user's choice: 1 is 100 %. Brought into the range of 0.5 to 4; what is no number is ignored.
    /// Returns when all adapters have adjusted themselves, in the order in which they were made; without a
    /// change of the scale none is called. An adapter may set the scale in turn, and the last one set holds.
    static void SetScale(double scale);

    /// The logical resolution [dots per inch] of the screen that the main window is on, as
    /// `QScreen::logicalDotsPerInch` gives it. Its scale is `ToScreenScale`. Otherwise like `SetScale`.
    static void SetScreenDpi(double dotsPerInch);

    /// What a screen of such a resolution [dots per inch] has more than the usual one, in steps of a quarter,
    /// at least 1 and at most 4.
    static double ToScreenScale(double dotsPerInch) noexcept;

    /// Calls `SetScreenDpi` for the screen that the window is on, now and whenever the window comes to
    /// another screen or its screen changes, for as long as the window lives. The window of the last call
    /// counts; null ends it. The scale stays as it is when nobody is followed any more.
    static void FollowScreenOf(QWindow* window);
};
