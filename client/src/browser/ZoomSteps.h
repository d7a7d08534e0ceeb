#pragma once

/// The factors that zooming goes through, from 25 % to 500 %.
namespace ZoomSteps {

constexpr double ActualSize = 1.0;

/// The next larger factor; the same when there is none.
double GetLarger(double zoom);
/// The next smaller factor; the same when there is none.
double GetSmaller(double zoom);

} // namespace ZoomSteps
