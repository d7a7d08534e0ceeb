#include "core/IMonitorSystem.h"
