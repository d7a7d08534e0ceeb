#include "frame-core/ModuleEvent.h"
