#pragma once

#include "frame-data/FrameDataExport.h"

#include <QtCore/qglobal.h>

class AsyncInfoManager;
class TLUserData;

/// What the client knows about the log-in. The client provides it through `Provided<IGeneralData>`. GUI
/// thread.
class TL_FRAME_DATA_EXPORT IGeneralData
{
public:
    virtual ~IGeneralData();

    /// The kind of log-in; never null, owned by the client.
    virtual AsyncInfoManager* GetAsyncInfoManager() = 0;
    /// The signed-in user; never null, owned by the client.
    virtual TLUserData* GetUserData() = 0;

    /// The provided object; while none is provided, one with no user and a normal log-in. Never null.
    static IGeneralData* Instance();

    static IGeneralData* Provided() noexcept;
    static void Provide(IGeneralData* data) noexcept;

protected:
    IGeneralData() = default;
    Q_DISABLE_COPY(IGeneralData)
};
