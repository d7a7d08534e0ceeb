#include "system/SystemEndWatch.h"

void SystemEndWatch::StartSignals() {}

void SystemEndWatch::StopSignals() {}
