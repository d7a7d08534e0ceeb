#include "http/IRequestCacheMethod.h"
