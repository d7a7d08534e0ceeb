#pragma once

/// Runs everything that is queued on this thread's event loop before the call: posted events and timers
/// without a delay.
void RunQueuedEvents();
