#include "frame-data/IGeneralData.h"

#include "frame-data/AsyncInfoManager.h"
#include "frame-data/TLUserData.h"

namespace {

// Stands in while no client provides one. Callers can write to what it gives out, so every call starts from
// the promised state.
class NobodySignedIn final : public IGeneralData
{
public:
    AsyncInfoManager* GetAsyncInfoManager() override
    {
        m_asyncInfo = AsyncInfoManager();
        return &m_asyncInfo;
    }
    TLUserData* GetUserData() override
    {
        m_user = TLUserData();
        return &m_user;
    }

private:
    AsyncInfoManager m_asyncInfo;
    TLUserData m_user;
};

IGeneralData* s_provided = nullptr;

} // namespace

IGeneralData::~IGeneralData() = default;

IGeneralData* IGeneralData::Instance()
{
    static NobodySignedIn nobody;
    return s_provided ? s_provided : &nobody;
}

IGeneralData* IGeneralData::Provided() noexcept
{
    return s_provided;
}

void IGeneralData::Provide(IGeneralData* data) noexcept
{
    s_provided = data;
}
