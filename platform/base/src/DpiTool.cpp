#include "base/DpiTool.h"

#include "DpiAdapters.h"
#include "ScreenWatch.h"

#include <QtCore/QPointer>
#include <QtCore/qglobal.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double MinUserScale = 0.5;
constexpr double MaxUserScale = 4;
constexpr double MaxScreenScale = 4;
#ifdef Q_OS_MACOS
constexpr double UsualDpi = 72;
#else
constexpr double UsualDpi = 96;
#endif

double userScale = 1;
double screenScale = 1;

void Change(double& part, double value)
{
    const double before = DpiTool::GetScale();
    part = value;
    // Deliberately exact: both come from the same few values.
    if (DpiTool::GetScale() < before || DpiTool::GetScale() > before) {
        DpiAdapters::Instance().AdjustAll();
    }
}

} // namespace

int DpiTool::ScaleDefault(int pixels) noexcept
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::round(pixels * GetScale()), lowest, highest));
}

double DpiTool::GetScale() noexcept
{
    return userScale * screenScale;
}

void DpiTool::SetScale(double scale)
{
    if (!std::isnan(scale)) {
        Change(userScale, std::clamp(scale, MinUserScale, MaxUserScale));
    }
}

void DpiTool::SetScreenDpi(double dotsPerInch)
{
    if (!std::isnan(dotsPerInch)) {
        Change(screenScale, ToScreenScale(dotsPerInch));
    }
}

double DpiTool::ToScreenScale(double dotsPerInch) noexcept
{
    return std::clamp(std::round(dotsPerInch / UsualDpi * 4) / 4, 1.0, MaxScreenScale);
}

void DpiTool::FollowScreenOf(QWindow* window)
{
    static QPointer<ScreenWatch> watch;
    delete watch;
    if (window) {
        watch = new ScreenWatch(window);
        watch->Begin();
    }
}
