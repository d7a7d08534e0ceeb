#pragma once

/// A group of settings pages that a module wants beside the client's own. All zero: none.
struct SettingGroup
{
    int id = 0;
    int order = 0;
};
