#include "frame-data/TLFunctionInfo.h"
