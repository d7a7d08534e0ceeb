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

    /// The web engine if the client was built with it, otherwise the plain one.
    static PageEngine GetBest() noexcept;
    /// `name` is "web" or "plain"; empty for any other name and for an engine that this client lacks.
    static std::optional<PageEngine> FromName(const QString& name);
    /// The names that `FromName` accepts, the best first.
    static QStringList GetNames();

    /// The engine's own version; empty for the plain one, which is part of the client.
    static QString GetVersion(PageEngine engine);

    /// `folder` is for the user's cookies and page storage, if the engine keeps any. `language` is the one
    /// that pages are told. The client must have been built with `engine`.
    static std::unique_ptr<IPageFactory> Make(PageEngine engine, const QString& folder,
                                              const QString& language);
};
