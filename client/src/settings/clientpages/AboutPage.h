#pragma once

#include "clientpages/ClientPage.h"

class QPlainTextEdit;
struct SettingsServices;

/// Versions and licences.
class AboutPage final : public ClientPage
{
    Q_OBJECT

public:
    /// `services` is not owned.
    explicit AboutPage(const SettingsServices* services);
    ~AboutPage() override;

    static QStringList GetKeywords();
    void AdjustForDpi() override;

private:
    QPlainTextEdit* m_licences;
};
