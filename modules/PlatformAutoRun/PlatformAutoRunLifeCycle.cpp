#include "PlatformAutoRunLifeCycle.h"

#include "AutoRunIdentifiers.h"
#include "PlatformAutoRun.h"
#include "TLAutoRunLogic.h"
#include "TLRecoverManager.h"
#include "TLRestartManager.h"

#include "frame-data/AsyncInfoManager.h"
#include "frame-data/IGeneralData.h"
#include "http/HttpNotifyManager.h"

PlatformAutoRunLifeCycle::PlatformAutoRunLifeCycle() = default;

PlatformAutoRunLifeCycle::~PlatformAutoRunLifeCycle() = default;

void PlatformAutoRunLifeCycle::MainFrameCreate()
{
    PlatformAutoRun::Instance();
}

void PlatformAutoRunLifeCycle::MainFrameShow()
{
    TLAutoRunLogic::Instance()->RequestAutoRun(QString());

    const AsyncInfoManager* login = IGeneralData::Instance()->GetAsyncInfoManager();
    if (!login->IsNormalLogin()) {
        if (login->IsOpen()) {
            TLRestartManager::Instance()->Restore();
        }
    } else if (!TLRecoverManager::Instance()->Recover()) {
        // Two attempts, for either order of events: the configuration is already known, or it arrives later.
        PlatformAutoRun::Instance()->OpenUrlList();
        HttpNotifyManager::Instance()->AddObserver(this, AutoRunIdentifiers::ReadFinished);
    }

    TLRestartManager::Instance()->Clear();
}

void PlatformAutoRunLifeCycle::MainFrameQuit()
{
    HttpNotifyManager::Instance()->RemoveAllMessage(this);
    TLRecoverManager::Instance()->Clear();
    PlatformAutoRun::ReleaseInstance();
}

void PlatformAutoRunLifeCycle::OnHttpNotify(int id, QSharedPointer<IHttpRequest> /*request*/,
                                            QSharedPointer<IHttpResponse> /*response*/)
{
    if (id != AutoRunIdentifiers::ReadFinished) {
        return;
    }
    PlatformAutoRun::Instance()->OpenUrlList();
    HttpNotifyManager::Instance()->RemoveAllMessage(this);
}
