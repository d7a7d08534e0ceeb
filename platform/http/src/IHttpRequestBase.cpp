#include "http/IHttpRequestBase.h"
