#include "frame-data/TLFunctionData.h"
