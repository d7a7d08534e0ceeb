#include "base/VXRouterProtocol.h"
