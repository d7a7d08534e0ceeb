#include "http/IHttpManager.h"
