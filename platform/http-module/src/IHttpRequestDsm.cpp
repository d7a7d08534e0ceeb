#include "http-module/IHttpRequestDsm.h"
