#include "core/TLGlobalData.h"
