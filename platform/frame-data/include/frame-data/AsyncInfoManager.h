#pragma once

#include "frame-data/FrameDataExport.h"

/// How this process came to be logged in. Set by the client before the main frame is shown.
class TL_FRAME_DATA_EXPORT AsyncInfoManager final
{
public:
    /// True after a log-in by hand; false when the client came up by its own restart.
    bool IsNormalLogin() const noexcept;
    /// After a restart: whether it asked for the tabs that were open before. Means nothing otherwise.
    bool IsOpen() const noexcept;

    void SetNormalLogin() noexcept;
    void SetRestart(bool openTabs) noexcept;

private:
    bool m_normalLogin = true;
    bool m_open = false;
};
