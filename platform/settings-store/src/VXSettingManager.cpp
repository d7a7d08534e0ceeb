#include "settings-store/VXSettingManager.h"
