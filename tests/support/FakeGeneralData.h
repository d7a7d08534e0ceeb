#pragma once

#include "frame-data/AsyncInfoManager.h"
#include "frame-data/IGeneralData.h"
#include "frame-data/TLUserData.h"

/// A log-in as the test sets it through the two objects; a normal log-in of nobody to begin with.
class FakeGeneralData final : public IGeneralData
{
public:
    FakeGeneralData();
    ~FakeGeneralData() override;

    AsyncInfoManager* GetAsyncInfoManager() override;
    TLUserData* GetUserData() override;

private:
    AsyncInfoManager m_asyncInfo;
    TLUserData m_user;
};
