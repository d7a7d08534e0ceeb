#include "ZoomSteps.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr double Steps[] = {0.25, 0.5, 0.67, 0.75, 0.8, 0.9, 1.0, 1.1,
                            1.25, 1.5, 1.75, 2.0,  2.5, 3.0, 4.0, 5.0};
constexpr double Tolerance = 0.01; // a page does not give back exactly what it was set to

} // namespace

double ZoomSteps::GetLarger(double zoom)
{
    const auto* const larger = std::upper_bound(std::begin(Steps), std::end(Steps), zoom + Tolerance);
    return larger == std::end(Steps) ? zoom : *larger;
}

double ZoomSteps::GetSmaller(double zoom)
{
    const auto* const here = std::lower_bound(std::begin(Steps), std::end(Steps), zoom - Tolerance);
    return here == std::begin(Steps) ? zoom : *(here - 1);
}
