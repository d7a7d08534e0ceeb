#include "http/HttpNotifyManager.h"
