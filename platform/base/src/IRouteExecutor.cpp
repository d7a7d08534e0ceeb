#include "base/IRouteExecutor.h"
