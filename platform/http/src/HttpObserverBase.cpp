#include "http/HttpObserverBase.h"

#include "http/HttpNotifyManager.h"

HttpObserverBase::~HttpObserverBase()
{
    HttpNotifyManager::Instance()->RemoveAllMessage(this);
}
