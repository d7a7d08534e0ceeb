#include "frame-core/IRouteInterceptor.h"
