#include "frame-data/TLRouter.h"
