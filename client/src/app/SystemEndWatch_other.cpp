#include "app/SystemEndWatch.h"

void SystemEndWatch::StartSignals() {}

void SystemEndWatch::StopSignals() {}
