#pragma once

/// Returns when everything that was queued on this thread's event loop before the call has run: posted
/// events and timers without a delay.
void RunQueuedEvents();
