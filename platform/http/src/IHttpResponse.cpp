#include "http/IHttpResponse.h"
