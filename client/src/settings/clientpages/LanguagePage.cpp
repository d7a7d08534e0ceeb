#include "clientpages/LanguagePage.h"

#include "settings/SettingsServices.h"

#include "base-ui/TLComboBox.h"

namespace {

// Each in its own words, so that a user in the wrong language finds the way back.
const QString English = QStringLiteral("English");
const QString Chinese = QStringLiteral("简体中文");

} // namespace

LanguagePage::LanguagePage(const SettingsServices* services)
    : m_services(services), m_language(new TLComboBox(this))
{
    m_language->setObjectName(QStringLiteral("language_combo"));
    m_language->addItem(English, QStringLiteral("en"));
    m_language->addItem(Chinese, QStringLiteral("zh_CN"));
    AddCard();
    AddRow([] { return tr("Language"); },
           [] { return tr("For the client and, where they support it, web pages."); }, m_language);
    ShowState();
    m_language->setEnabled(static_cast<bool>(services->chooseLanguage));
    connect(m_language, QOverload<int>::of(&QComboBox::activated), this,
            [this] { m_services->chooseLanguage(m_language->currentData().toString()); });
}

LanguagePage::~LanguagePage() = default;

QStringList LanguagePage::GetKeywords()
{
    return {tr("Language"),
            English,
            Chinese,
            QStringLiteral("Language"),
            QStringLiteral("语言"),
            QStringLiteral("中文"),
            QStringLiteral("Chinese")};
}

void LanguagePage::ShowState()
{
    m_language->setCurrentIndex(m_language->findData(m_services->language));
}
