#pragma once

/// Where a group of settings pages stands in the dialog. An `id` of 0: nowhere in particular.
struct SettingGroup
{
    int id = 0;
    int order = 0;
};
