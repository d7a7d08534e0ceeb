#include "clientpages/AppearancePage.h"

#include "look/ScaleManager.h"
#include "settings/SettingsServices.h"

#include "base-ui/TLComboBox.h"

AppearancePage::AppearancePage(const SettingsServices* services)
    : m_services(services), m_theme(new TLComboBox(this)), m_scale(new TLComboBox(this))
{
    m_theme->setObjectName(QStringLiteral("theme_combo"));
    m_scale->setObjectName(QStringLiteral("scale_combo"));
    for (const Theme theme : {Theme::FollowSystem, Theme::Light, Theme::Dark}) {
        m_theme->addItem(QString(), QVariant::fromValue(theme));
    }
    const QList<int> scales = ScaleManager::GetScales();
    for (const int scale : scales) {
        m_scale->addItem(QStringLiteral("%1 %").arg(scale), scale);
    }

    AddCard();
    AddRow([] { return tr("Theme"); }, [] { return tr("The colours of the client, but not of web pages."); },
           m_theme);
    AddRow([] { return tr("Size"); },
           [] { return tr("For text, buttons and everything else in the client."); }, m_scale);
    AddTexts([this] {
        m_theme->setItemText(0, tr("Follow the system"));
        m_theme->setItemText(1, tr("Light"));
        m_theme->setItemText(2, tr("Dark"));
    });
    ShowState();
    m_theme->setEnabled(static_cast<bool>(services->chooseTheme));
    m_scale->setEnabled(static_cast<bool>(services->chooseScale));
    connect(m_theme, QOverload<int>::of(&QComboBox::activated), this,
            [this] { m_services->chooseTheme(m_theme->currentData().value<Theme>()); });
    connect(m_scale, QOverload<int>::of(&QComboBox::activated), this,
            [this] { m_services->chooseScale(m_scale->currentData().toInt()); });
}

AppearancePage::~AppearancePage() = default;

QStringList AppearancePage::GetKeywords()
{
    return {tr("Theme"), tr("Light"),  tr("Dark"), tr("Follow the system"), tr("Size"), tr("Scale"),
            tr("Zoom"),  tr("Colour"), tr("Font")};
}

void AppearancePage::ShowState()
{
    m_theme->setCurrentIndex(m_theme->findData(QVariant::fromValue(m_services->theme)));
    m_scale->setCurrentIndex(m_scale->findData(m_services->scale));
}
