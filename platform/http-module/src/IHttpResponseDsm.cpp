#include "http-module/IHttpResponseDsm.h"
