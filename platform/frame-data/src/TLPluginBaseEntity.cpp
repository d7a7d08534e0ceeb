#include "frame-data/TLPluginBaseEntity.h"
