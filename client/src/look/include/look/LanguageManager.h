#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTranslator>

#include <memory>
#include <vector>

/// Switches the language of the client, its modules and Qt's own texts at run time: every widget gets a
/// QEvent::LanguageChange. Make one, after the QApplication. GUI thread.
class LanguageManager final : public QObject
{
    Q_OBJECT

public:
    /// `folder` holds the translations of client and modules, `*_zh_CN.qm`, and may hold `qtbase_zh_CN.qm`,
    /// which is otherwise loaded from Qt's own translations folder.
    explicit LanguageManager(const QString& folder, QObject* parent = nullptr);
    ~LanguageManager() override;

    /// "en" and "zh_CN".
    static QStringList GetLanguages();
    /// The system's language if the client has it, otherwise "en".
    static QString GetSystemLanguage();

    /// "en" before the first `Apply`.
    QString GetLanguage() const;

    /// An unknown language counts as "en". Takes effect immediately.
    void Apply(const QString& language);

Q_SIGNALS:
    void SigLanguageApplied(const QString& language);

private:
    QString m_folder;
    QString m_language;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
