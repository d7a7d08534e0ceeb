#include "http-module/IDsmGateway.h"
