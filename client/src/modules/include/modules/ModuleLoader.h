#pragma once

#include "modules/LoadedModule.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <vector>

class QJsonObject;
class QPluginLoader;

/// Loads the business modules: every Qt plug-in of the modules folders whose metadata carries this
/// client's module interface. Metadata is read before any of the module's code runs, and a file that
/// cannot be used is refused with a reason, never with a crash. GUI thread.
class ModuleLoader final : public QObject
{
    Q_OBJECT

public:
    explicit ModuleLoader(QObject* parent = nullptr);
    /// Unloads.
    ~ModuleLoader() override;

    /// Loads the files of the folders, each in the order of the file names, and calls `InitModule` of
    /// each. A folder that does not exist is empty. Files that are no libraries are passed over.
    void Load(const QStringList& folders);
    /// What runs, in the order of loading.
    std::vector<LoadedModule> GetModules() const;
    /// Calls `UninitModule`, destroys the module and unloads its library, the last loaded first.
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
    /// Empty when the metadata is that of a module which this client can run.
    QString CheckMetaData(const QJsonObject& metaData, const QString& loaderError, QString* key) const;

    std::vector<Entry> m_entries;
};
