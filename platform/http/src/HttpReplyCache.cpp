#include "http/HttpReplyCache.h"
