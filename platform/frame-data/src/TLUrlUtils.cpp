#include "frame-data/TLUrlUtils.h"
