#pragma once

#include "clientpages/ClientPage.h"

class TLComboBox;
struct SettingsServices;

/// Theme and scale.
class AppearancePage final : public ClientPage
{
    Q_OBJECT

public:
    /// `services` is not owned.
    explicit AppearancePage(const SettingsServices* services);
    ~AppearancePage() override;

    static QStringList GetKeywords();
    void ShowState() override;

private:
    const SettingsServices* m_services;
    TLComboBox* m_theme;
    TLComboBox* m_scale;
};
