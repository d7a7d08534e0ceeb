#include "frame-data/TLUserData.h"
