#pragma once

#include "frame-data/AsyncInfoManager.h"
#include "frame-data/IGeneralData.h"
#include "frame-data/TLUserData.h"

/// A log-in that the test sets through the two objects; begins as a normal log-in without a user.
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
