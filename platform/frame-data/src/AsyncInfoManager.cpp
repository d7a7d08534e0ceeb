#include "frame-data/AsyncInfoManager.h"
