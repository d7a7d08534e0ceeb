#include "frame-core/ISysSettingFactory.h"
