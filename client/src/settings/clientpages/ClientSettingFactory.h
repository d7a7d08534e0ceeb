#pragma once

#include "frame-core/ISysSettingFactory.h"

#include <QtCore/QPointer>
#include <QtCore/QVector>

class ClientPage;
struct SettingsServices;

/// The client's own settings pages. GUI thread.
class ClientSettingFactory final : public ISysSettingFactory
{
public:
    /// `services` is not owned and outlives the pages.
    explicit ClientSettingFactory(const SettingsServices* services);
    ~ClientSettingFactory() override;

    QList<SettingWidgetId> GetSettingWidgetIds() override;
    SettingItemBaseWidget* CreateSettingWidget(SettingWidgetId id) override;
    QStringList GetSearchKeywords(SettingWidgetId id) override;

    /// The services have changed: the pages follow.
    void ShowChoices();
    void ShowEvents();

private:
    const SettingsServices* m_services;
    QVector<QPointer<ClientPage>> m_pages;
};
