#pragma once

#include <functional>

/// Runs this thread's event loop until `condition` holds; false when it does not within `patience` [ms].
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition, int patience = 20000);
