#pragma once

#include <functional>

class QObject;

/// Event loops that run inside the application's own: modal dialogs and open menus.
namespace NestedLoops {

/// Closes them, as the user would by Escape, and calls `action` from the application's own event loop once
/// all have returned; now when there are none. What does not return within 3 s is left as it is.
/// Not called when `context` goes before that. GUI thread.
void LeaveThen(QObject* context, const std::function<void()>& action);

} // namespace NestedLoops
