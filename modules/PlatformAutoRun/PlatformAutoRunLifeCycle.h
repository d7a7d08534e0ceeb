#pragma once

#include "frame-core/ILifeCycle.h"
#include "http/HttpObserverBase.h"

#include <QtCore/QObject>

/// The module's answer to the client's life cycle: decides once per log-in what the user gets to see
/// first, and takes everything back when the main frame goes away. Made by the module object. GUI thread.
class PlatformAutoRunLifeCycle final : public QObject, public ILifeCycle, public HttpObserverBase
{
    Q_OBJECT

public:
    PlatformAutoRunLifeCycle();
    ~PlatformAutoRunLifeCycle() override;

    /// Makes the opener here, on the GUI thread, before it is needed.
    void MainFrameCreate() override;
    /// Starts a read of the configuration and decides what opens: the tabs of a restart, the tabs of an
    /// interrupted run, or the user's list. Opens none of the list inside this call.
    void MainFrameShow() override;
    /// Leaves the notification hub, clears the record of open tabs and releases the opener.
    void MainFrameQuit() override;

    /// The first finished read after a log-in, good or not, gives the list its second chance to open.
    void OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                      QSharedPointer<IHttpResponse> response) override;

private:
    Q_DISABLE_COPY(PlatformAutoRunLifeCycle)
};
