#include "frame-core/IBrowserTab.h"
