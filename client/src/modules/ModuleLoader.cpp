#include "modules/ModuleLoader.h"

#include "GuardedCall.h"

#include "frame-core/IBusinessModule.h"
#include "image-module/ImageLabel.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QLibrary>
#include <QtCore/QLoggingCategory>
#include <QtCore/QPluginLoader>

#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(logModules, "tl.client.modules")

const QString InterfaceId = QStringLiteral(IBusinessModule_iid);

// The platform's libraries have to outlive the modules. The client uses every one but this, which the system
// would unload with the last module, while its code may still be in a queue.
[[maybe_unused]] const QMetaObject* const volatile held = &ImageLabel::staticMetaObject;

QString InterfaceName(const QString& id)
{
    return id.section(QLatin1Char('/'), 0, 0);
}

QString InterfaceVersion(const QString& id)
{
    return id.section(QLatin1Char('/'), 1);
}

} // namespace

ModuleLoader::ModuleLoader(QObject* parent) : QObject(parent) {}

ModuleLoader::~ModuleLoader()
{
    Unload();
}

void ModuleLoader::Load(const QStringList& folders)
{
    for (const QString& name : folders) {
        const QDir folder(name);
        const QStringList files = folder.entryList(QDir::Files | QDir::Readable, QDir::Name);
        for (const QString& file : files) {
            if (QLibrary::isLibrary(file)) {
                LoadFile(QDir::cleanPath(folder.absoluteFilePath(file)));
            }
        }
    }
}

std::vector<LoadedModule> ModuleLoader::GetModules() const
{
    std::vector<LoadedModule> modules;
    modules.reserve(m_entries.size());
    for (const Entry& entry : m_entries) {
        modules.push_back(entry.loaded);
    }
    return modules;
}

void ModuleLoader::Unload()
{
    while (!m_entries.empty()) {
        Entry entry = std::move(m_entries.back());
        m_entries.pop_back();
        GuardedCall(entry.loaded.key, "UninitModule", [&entry] { entry.loaded.module->UninitModule(); });
        if (!entry.library->unload()) {
            qCWarning(logModules) << "module" << entry.loaded.key
                                  << "stays loaded:" << entry.library->errorString();
        }
    }
}

void ModuleLoader::LoadFile(const QString& file)
{
    const auto refuse = [this, &file](const QString& reason) {
        qCWarning(logModules).noquote() << "module" << file << "is not used:" << reason;
        Q_EMIT SigRefused(file, reason);
    };

    auto library = std::make_unique<QPluginLoader>(file);
    // Resolve all symbols now: a missing one makes the client refuse the file instead of crashing later.
    library->setLoadHints(QLibrary::ResolveAllSymbolsHint);
    QString key;
    const QString problem = CheckMetaData(library->metaData(), library->errorString(), &key);
    if (!problem.isEmpty()) {
        refuse(problem);
        return;
    }
    QObject* root = nullptr;
    GuardedCall(key, "qt_plugin_instance", [&library, &root] { root = library->instance(); });
    if (!root) {
        refuse(tr("The file cannot be loaded: %1").arg(library->errorString()));
        return;
    }
    auto* const module = qobject_cast<IBusinessModule*>(root);
    if (!module) {
        refuse(tr("The plug-in's object does not offer the module interface %1.").arg(InterfaceId));
        library->unload();
        return;
    }
    if (!GuardedCall(key, "InitModule", [module] { module->InitModule(); })) {
        refuse(tr("The module failed to initialise."));
        GuardedCall(key, "UninitModule", [module] { module->UninitModule(); });
        library->unload();
        return;
    }
    m_entries.push_back({{key, file, module}, std::move(library)});
    Q_EMIT SigLoaded(file, key);
}

QString ModuleLoader::CheckMetaData(const QJsonObject& metaData, const QString& loaderError,
                                    QString* key) const
{
    if (metaData.isEmpty()) {
        return tr("The file is damaged or not a plug-in: %1").arg(loaderError);
    }
    const QString id = metaData.value(QLatin1String("IID")).toString();
    if (id != InterfaceId) {
        return InterfaceName(id) == InterfaceName(InterfaceId)
                   ? tr("The module was built for version %1 of the module interface; this client has "
                        "version %2.")
                         .arg(InterfaceVersion(id), InterfaceVersion(InterfaceId))
                   : tr("The file is a different kind of plug-in: its interface is \"%1\", not \"%2\".")
                         .arg(id, InterfaceId);
    }
    const QJsonArray keys =
        metaData.value(QLatin1String("MetaData")).toObject().value(QLatin1String("Keys")).toArray();
    *key = keys.isEmpty() ? QString() : keys.at(0).toString();
    if (key->isEmpty()) {
        return tr("The module does not name its key.");
    }
    const auto same = std::find_if(m_entries.begin(), m_entries.end(),
                                   [key](const Entry& entry) { return entry.loaded.key == *key; });
    if (same != m_entries.end()) {
        return tr("A module with the key \"%1\" is already loaded from %2.").arg(*key, same->loaded.file);
    }
    return QString();
}
