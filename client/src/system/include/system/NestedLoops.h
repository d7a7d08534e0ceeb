#pragma once

#include <functional>

class QObject;

/// Event loops that run inside the application's own: modal dialogs and open menus.
namespace NestedLoops {

/// Closes them as Escape would, and calls `action` from the application's own event loop when all have
/// returned, or immediately when there are none. Stops waiting after 3 s and calls `action` anyway.
/// Does not call it when `context` is destroyed first. GUI thread.
void LeaveThen(QObject* context, const std::function<void()>& action);

} // namespace NestedLoops
