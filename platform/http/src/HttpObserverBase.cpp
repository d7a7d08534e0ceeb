#include "http/HttpObserverBase.h"
