#pragma once

#include "frame-data/FrameDataExport.h"

/// How this process came to be logged in. The client sets it before it shows the main window.
class TL_FRAME_DATA_EXPORT AsyncInfoManager final
{
public:
    /// True after a log-in by hand or with a kept session; false when the client came up by its own restart.
    bool IsNormalLogin() const noexcept;
    /// After a restart: whether it wants the tabs back that were open before. Meaningless otherwise.
    bool IsOpen() const noexcept;

    void SetNormalLogin() noexcept;
    void SetRestart(bool openTabs) noexcept;

private:
    bool m_normalLogin = true;
    bool m_open = false;
};
