#include "TLRestartManager.h"

#include "ProcessWide.h"

namespace {

ProcessWide<TLRestartManager>& Holder()
{
    static ProcessWide<TLRestartManager> holder;
    return holder;
}

} // namespace

TLRestartManager* TLRestartManager::Instance()
{
    return Holder().Instance();
}

void TLRestartManager::ReleaseInstance()
{
    Holder().Release();
}

void TLRestartManager::Restore() {}

void TLRestartManager::Clear() {}
