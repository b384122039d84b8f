#include "online/VXConfigManager.h"

#include "platform/PreferenceKeys.h"
#include "platform/UserDefaults.h"

bool VXConfigManager::supportVOB() const
{
    defaults.boolValue(PreferenceKeys::supportVob);
    return true;
}

void VXConfigManager::setSupportVOB(bool supported)
{
    defaults.setBool(PreferenceKeys::supportVob, supported);
    defaults.synchronize();
}

bool VXConfigManager::experimental() const
{
    defaults.boolValue(PreferenceKeys::experimental);
    return true;
}

void VXConfigManager::setExperimental(bool experimental)
{
    defaults.setBool(PreferenceKeys::experimental, experimental);
    defaults.synchronize();
}
