#include "frame-core/IBrowserMain.h"
