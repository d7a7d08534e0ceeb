#include "look/LanguageManager.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QLibraryInfo>
#include <QtCore/QLocale>

LanguageManager::LanguageManager(const QString& folder, QObject* parent)
    : QObject(parent), m_folder(folder), m_language(QStringLiteral("en"))
{}

LanguageManager::~LanguageManager() = default;

QStringList LanguageManager::GetLanguages()
{
    return {QStringLiteral("en"), QStringLiteral("zh_CN")};
}

QString LanguageManager::GetSystemLanguage()
{
    const QLocale locale = QLocale::system();
    const bool simplified =
        locale.language() == QLocale::Chinese && locale.script() != QLocale::TraditionalChineseScript;
    return simplified ? QStringLiteral("zh_CN") : QStringLiteral("en");
}

QString LanguageManager::GetLanguage() const
{
    return m_language;
}

void LanguageManager::Apply(const QString& language)
{
    const QString wanted = GetLanguages().contains(language) ? language : QStringLiteral("en");

    // A QTranslator removes itself from the application when it is destroyed.
    m_translators.clear();
    m_language = wanted;

    // Qt's own texts first: Qt asks the last translator first, and ours may differ on purpose.
    const QString qtName = QStringLiteral("qtbase_%1.qm").arg(wanted);
    const QDir folder(m_folder);
    QStringList files;
    if (folder.exists(qtName)) {
        files << folder.filePath(qtName);
    } else {
        files << QDir(QLibraryInfo::location(QLibraryInfo::TranslationsPath)).filePath(qtName);
    }
    const QStringList own =
        folder.entryList({QStringLiteral("*_%1.qm").arg(wanted)}, QDir::Files, QDir::Name);
    for (const QString& name : own) {
        if (name != qtName) {
            files << folder.filePath(name);
        }
    }
    for (const QString& file : qAsConst(files)) {
        auto translator = std::make_unique<QTranslator>();
        if (translator->load(file) && QCoreApplication::installTranslator(translator.get())) {
            m_translators.push_back(std::move(translator));
        }
    }
    Q_EMIT SigLanguageApplied(wanted);
}
