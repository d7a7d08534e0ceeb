#include "http/IResponseCacheMethod.h"
