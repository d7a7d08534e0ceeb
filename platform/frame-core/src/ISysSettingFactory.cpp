#include "frame-core/ISysSettingFactory.h"

ISysSettingFactory::~ISysSettingFactory() = default;

SettingGroup ISysSettingFactory::GetSettingGroup()
{
    return SettingGroup();
}
