#include "ClientAppearance.h"

#include "ClientMemory.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

ClientAppearance::ClientAppearance(const QString& translations, QObject* parent)
    : QObject(parent), m_languages(translations)
{
    m_scales.Apply(ClientMemory::GetScale());
    m_themes.Apply(ClientMemory::GetTheme());
    const QString remembered = ClientMemory::GetLanguage();
    m_languages.Apply(remembered.isEmpty() ? LanguageManager::GetSystemLanguage() : remembered);
    connect(&m_languages, &LanguageManager::SigLanguageApplied, this, &ClientAppearance::SigLanguageChanged);
}

void ClientAppearance::ChooseTheme(Theme theme)
{
    ClientMemory::SetTheme(theme);
    m_themes.Apply(theme);
    Q_EMIT SigThemeChanged(theme);
}

void ClientAppearance::ChooseScale(int scale)
{
    ClientMemory::SetScale(scale);
    m_scales.Apply(scale);
    Q_EMIT SigScaleChanged(m_scales.GetScale());
}

void ClientAppearance::ChooseLanguage(const QString& language)
{
    ClientMemory::SetLanguage(language);
    m_languages.Apply(language);
}

QString ClientAppearance::DefaultTranslations()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const QString beside = program.filePath(QStringLiteral("translations"));
    return QDir(beside).exists() ? beside
                                 : QDir::cleanPath(program.filePath(QStringLiteral("../translations")));
}
