#pragma once

#include "modules/LoadedModule.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

class QJsonObject;
class QPluginLoader;

/// Loads the business modules: every Qt plug-in in the modules folders whose metadata names this client's
/// module interface. Reads the metadata before any of the module's code runs, and refuses an unusable file
/// with a reason, never with a crash. GUI thread.
class ModuleLoader final : public QObject
{
    Q_OBJECT

public:
    explicit ModuleLoader(QObject* parent = nullptr);
    /// Unloads.
    ~ModuleLoader() override;

    /// Loads the files of each folder in the order of their names, and calls `InitModule` of each. A missing
    /// folder counts as empty; files that are not libraries are skipped.
    void Load(const QStringList& folders);
    /// The running modules, in the order of loading.
    std::vector<LoadedModule> GetModules() const;
    /// Calls `UninitModule`, destroys the module and unloads its library, last loaded first.
    void Unload();

Q_SIGNALS:
    void SigLoaded(const QString& file, const QString& key);
    /// `reason` is a sentence for a person.
    void SigRefused(const QString& file, const QString& reason);

private:
    struct Entry
    {
        LoadedModule loaded;
        std::unique_ptr<QPluginLoader> library;
    };

    void LoadFile(const QString& file);
    /// Why this client cannot run a module with this metadata; empty when it can, with the module's `key`.
    QString CheckMetaData(const QJsonObject& metaData, const QString& loaderError, QString* key) const;

    std::vector<Entry> m_entries;
};
