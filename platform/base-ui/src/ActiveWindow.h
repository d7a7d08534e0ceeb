#pragma once

class QWidget;

/// The client's window that the user works in. When the user works in another program, the largest one; null
/// when the client shows no window.
QWidget* FindActiveWindow();
