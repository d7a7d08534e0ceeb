#include "frame-data/ITabOpener.h"
