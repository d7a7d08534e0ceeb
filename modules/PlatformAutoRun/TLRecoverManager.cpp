#include "TLRecoverManager.h"

#include "ProcessWide.h"

namespace {

ProcessWide<TLRecoverManager>& Holder()
{
    static ProcessWide<TLRecoverManager> holder;
    return holder;
}

} // namespace

TLRecoverManager* TLRecoverManager::Instance()
{
    return Holder().Instance();
}

void TLRecoverManager::ReleaseInstance()
{
    Holder().Release();
}

bool TLRecoverManager::Recover()
{
    return false;
}

void TLRecoverManager::Clear() {}
