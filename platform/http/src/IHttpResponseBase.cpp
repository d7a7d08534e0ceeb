#include "http/IHttpResponseBase.h"
