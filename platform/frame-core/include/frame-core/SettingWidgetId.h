#pragma once

#include <QtCore/QHashFunctions>

/// The id of a settings page: its group and its place there. The dialog sorts pages by both.
class SettingWidgetId final
{
public:
    constexpr SettingWidgetId() = default;
    constexpr SettingWidgetId(int group, int order) noexcept : m_group(group), m_order(order) {}

    constexpr int GetGroup() const noexcept { return m_group; }
    constexpr int GetOrder() const noexcept { return m_order; }

    friend constexpr bool operator==(SettingWidgetId a, SettingWidgetId b) noexcept
    {
        return a.m_group == b.m_group && a.m_order == b.m_order;
    }
    friend constexpr bool operator!=(SettingWidgetId a, SettingWidgetId b) noexcept { return !(a == b); }
    friend constexpr bool operator<(SettingWidgetId a, SettingWidgetId b) noexcept
    {
        return a.m_group != b.m_group ? a.m_group < b.m_group : a.m_order < b.m_order;
    }
    friend uint qHash(SettingWidgetId id, uint seed = 0) noexcept
    {
        return ::qHash((quint64(quint32(id.m_group)) << 32) | quint32(id.m_order), seed);
    }

private:
    int m_group = 0;
    int m_order = 0;
};
