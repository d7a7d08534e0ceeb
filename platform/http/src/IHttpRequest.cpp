#include "http/IHttpRequest.h"
