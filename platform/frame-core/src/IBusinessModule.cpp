#include "frame-core/IBusinessModule.h"

IBusinessModule::~IBusinessModule() = default;

void* IBusinessModule::GetReserved5()
{
    return nullptr;
}

void* IBusinessModule::GetReserved6()
{
    return nullptr;
}

void* IBusinessModule::GetReserved7()
{
    return nullptr;
}

void* IBusinessModule::GetReserved9()
{
    return nullptr;
}
