#pragma once

#include "frame-core/ILifeCycle.h"
#include "http/HttpObserverBase.h"

#include <QtCore/QObject>

/// The module's part in the client's life cycle: decides once per log-in what opens first, and undoes
/// everything when the main window goes away. The module object makes it. GUI thread.
class PlatformAutoRunLifeCycle final : public QObject, public ILifeCycle, public HttpObserverBase
{
    Q_OBJECT

public:
    PlatformAutoRunLifeCycle();
    ~PlatformAutoRunLifeCycle() override;

    /// Makes the opener early, on the GUI thread.
    void MainFrameCreate() override;
    /// Starts to read the configuration and decides what opens: the tabs of a restart, the tabs of an
    /// interrupted run (after a question with an event loop of its own), or the user's list. Opens nothing of
    /// the list inside this call.
    void MainFrameShow() override;
    /// Leaves the notification hub, clears the record of open tabs and releases the opener.
    void MainFrameQuit() override;

    /// The first finished read after a log-in, successful or not, gives the list its second attempt to open.
    void OnHttpNotify(int id, QSharedPointer<IHttpRequest> request,
                      QSharedPointer<IHttpResponse> response) override;

private:
    Q_DISABLE_COPY(PlatformAutoRunLifeCycle)
};
