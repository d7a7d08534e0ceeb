#pragma once

#include "look/LanguageManager.h"
#include "look/ScaleManager.h"
#include "look/Theme.h"
#include "look/ThemeManager.h"

#include <QtCore/QObject>
#include <QtCore/QString>

/// Theme, scale and language: applies the user's last choice and remembers each new one. GUI thread.
class ClientAppearance final : public QObject
{
    Q_OBJECT

public:
    /// Applies the remembered choice. `translations` is the folder of the translations.
    explicit ClientAppearance(const QString& translations, QObject* parent = nullptr);

    Theme GetTheme() const { return m_themes.GetTheme(); }
    QString GetLanguage() const { return m_languages.GetLanguage(); }

    int GetScale() const { return m_scales.GetScale(); } ///< [%]

    void ChooseTheme(Theme theme);
    void ChooseScale(int scale);
    void ChooseLanguage(const QString& language);

    /// The folder where this installation keeps its translations.
    static QString DefaultTranslations();

Q_SIGNALS:
    void SigThemeChanged(Theme theme);
    void SigScaleChanged(int scale);
    void SigLanguageChanged(const QString& language);

private:
    ScaleManager m_scales; // before the themes, which follow it
    ThemeManager m_themes;
    LanguageManager m_languages;
};
