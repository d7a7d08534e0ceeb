#pragma once

#include "clientpages/ClientPage.h"

class MonitorEventModel;
class QTableView;
class TLPushButton;
struct SettingsServices;

/// What the client has recorded of the user's actions.
class MonitoringPage final : public ClientPage
{
    Q_OBJECT

public:
    /// `services` is not owned.
    explicit MonitoringPage(const SettingsServices* services);
    ~MonitoringPage() override;

    static QStringList GetKeywords();
    void ShowState() override;
    void AdjustForDpi() override;

private:
    void Update();

    const SettingsServices* m_services;
    MonitorEventModel* m_model;
    QTableView* m_table;
    TLPushButton* m_clear;
    bool m_pending = false;
};
