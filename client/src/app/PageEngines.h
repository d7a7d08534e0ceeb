#pragma once

#include "pages/IPageFactory.h"
#include "pages/PageEngine.h"

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>
#include <optional>

/// The page engines that this client was built with.
class PageEngines final
{
public:
    PageEngines() = delete;

    /// Web where the client was built with it.
    static PageEngine GetBest() noexcept;
    /// "web" or "plain"; empty for any other name, and for an engine that this client was built without.
    static std::optional<PageEngine> FromName(const QString& name);
    /// The names that `FromName` takes, the best first.
    static QStringList GetNames();

    /// As its makers count; empty for the plain one, which is the client's own.
    static QString GetVersion(PageEngine engine);

    /// `folder` is where the user's cookies and page storage stand, where the engine keeps any. `language` is
    /// what pages are told that the user reads. The engine is one that this client was built with.
    static std::unique_ptr<IPageFactory> Make(PageEngine engine, const QString& folder,
                                              const QString& language);
};
