#pragma once

#include "browser/LanguageManager.h"
#include "browser/Theme.h"
#include "browser/ThemeManager.h"

#include <QtCore/QObject>
#include <QtCore/QString>

/// Theme and language as the user chose them last, remembered when they choose again. GUI thread.
class ClientAppearance final : public QObject
{
    Q_OBJECT

public:
    /// Applies what is remembered. `translations` is the folder of the translations.
    explicit ClientAppearance(const QString& translations, QObject* parent = nullptr);

    Theme GetTheme() const { return m_themes.GetTheme(); }
    QString GetLanguage() const { return m_languages.GetLanguage(); }

    void ChooseTheme(Theme theme);
    void ChooseLanguage(const QString& language);

    /// Where this installation has its translations.
    static QString DefaultTranslations();

Q_SIGNALS:
    void SigLanguageChanged(const QString& language);

private:
    ThemeManager m_themes;
    LanguageManager m_languages;
};
