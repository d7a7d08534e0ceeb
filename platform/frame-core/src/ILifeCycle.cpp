#include "frame-core/ILifeCycle.h"
