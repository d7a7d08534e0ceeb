#include "http/HttpManager.h"
