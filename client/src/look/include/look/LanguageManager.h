#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTranslator>

#include <memory>
#include <vector>

/// Switches the language of the client, its modules and Qt's own texts while running: every widget gets
/// a QEvent::LanguageChange. Made once, after the QApplication. GUI thread.
class LanguageManager final : public QObject
{
    Q_OBJECT

public:
    /// `folder` holds the translations of client and modules, `*_zh_CN.qm`, and may hold `qtbase_zh_CN.qm`;
    /// if it does not, Qt's own translations folder is looked into.
    explicit LanguageManager(const QString& folder, QObject* parent = nullptr);
    ~LanguageManager() override;

    /// "en" and "zh_CN".
    static QStringList GetLanguages();
    /// The language of the system when it is one of ours, else "en".
    static QString GetSystemLanguage();

    /// "en" until `Apply` is called.
    QString GetLanguage() const;

    /// An unknown language counts as "en". Takes effect at once.
    void Apply(const QString& language);

Q_SIGNALS:
    void SigLanguageApplied(const QString& language);

private:
    QString m_folder;
    QString m_language;
    std::vector<std::unique_ptr<QTranslator>> m_translators;
};
