#pragma once

#include "frame-data/AsyncInfoManager.h"
#include "frame-data/IGeneralData.h"
#include "frame-data/TLUserData.h"

/// What the client tells modules about the log-in.
class GeneralData final : public IGeneralData
{
public:
    AsyncInfoManager* GetAsyncInfoManager() override { return &m_asyncInfo; }
    TLUserData* GetUserData() override { return &m_user; }

private:
    AsyncInfoManager m_asyncInfo;
    TLUserData m_user;
};
