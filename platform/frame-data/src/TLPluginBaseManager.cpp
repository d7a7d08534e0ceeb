#include "frame-data/TLPluginBaseManager.h"
