#include "FakeGeneralData.h"

FakeGeneralData::FakeGeneralData() = default;

FakeGeneralData::~FakeGeneralData() = default;

AsyncInfoManager* FakeGeneralData::GetAsyncInfoManager()
{
    return &m_asyncInfo;
}

TLUserData* FakeGeneralData::GetUserData()
{
    return &m_user;
}
