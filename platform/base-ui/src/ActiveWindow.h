#pragma once

class QWidget;

/// The client's window that the user works in; the largest one when the user is in another program, null
/// when the client shows none.
QWidget* FindActiveWindow();
