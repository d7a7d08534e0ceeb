#pragma once

#include "FakeSettingsPage.h"

#include "frame-core/ISysSettingFactory.h"

#include <QtCore/QPointer>

/// A module's factory with one page, which a switch may hide.
class FakeSettingFactory final : public ISysSettingFactory
{
public:
    QList<SettingWidgetId> GetSettingWidgetIds() override
    {
        return displayed ? QList<SettingWidgetId>{SettingWidgetId(10, 60)} : QList<SettingWidgetId>();
    }
    SettingItemBaseWidget* CreateSettingWidget(SettingWidgetId id) override
    {
        if (id != SettingWidgetId(10, 60)) {
            return nullptr;
        }
        page = new FakeSettingsPage;
        ++made;
        return page;
    }
    QStringList GetSearchKeywords(SettingWidgetId) override { return keywords; }

    bool displayed = true;
    QStringList keywords{QStringLiteral("Homepage"), QStringLiteral("orders.example")};
    QPointer<FakeSettingsPage> page; ///< the last one made
    int made = 0;
};
