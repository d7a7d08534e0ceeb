#pragma once

#include "clientpages/ClientPage.h"

class TLComboBox;
struct SettingsServices;

/// The language of the client.
class LanguagePage final : public ClientPage
{
    Q_OBJECT

public:
    /// `services` is not owned.
    explicit LanguagePage(const SettingsServices* services);
    ~LanguagePage() override;

    static QStringList GetKeywords();
    void ShowState() override;

private:
    const SettingsServices* m_services;
    TLComboBox* m_language;
};
