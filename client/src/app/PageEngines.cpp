#include "PageEngines.h"

#include "plain/PlainPageFactory.h"
#ifdef TL_WITH_WEB_ENGINE
#include "webengine/WebEnginePageFactory.h"

#include <QtWebEngineCore/qtwebenginecoreversion.h>
#endif

namespace {

const QString WebName = QStringLiteral("web");
const QString PlainName = QStringLiteral("plain");

} // namespace

PageEngine PageEngines::GetBest() noexcept
{
#ifdef TL_WITH_WEB_ENGINE
    return PageEngine::Web;
#else
    return PageEngine::Plain;
#endif
}

std::optional<PageEngine> PageEngines::FromName(const QString& name)
{
    if (!GetNames().contains(name)) {
        return std::nullopt;
    }
    return name == WebName ? PageEngine::Web : PageEngine::Plain;
}

QStringList PageEngines::GetNames()
{
    return GetBest() == PageEngine::Web ? QStringList{WebName, PlainName} : QStringList{PlainName};
}

QString PageEngines::GetVersion(PageEngine engine)
{
#ifdef TL_WITH_WEB_ENGINE
    if (engine == PageEngine::Web) {
        return QStringLiteral(QTWEBENGINECORE_VERSION_STR);
    }
#else
    Q_UNUSED(engine)
#endif
    return QString();
}

std::unique_ptr<IPageFactory> PageEngines::Make(PageEngine engine, const QString& folder,
                                                const QString& language)
{
#ifdef TL_WITH_WEB_ENGINE
    if (engine == PageEngine::Web) {
        return std::make_unique<WebEnginePageFactory>(folder, language);
    }
#else
    Q_UNUSED(engine)
    Q_UNUSED(folder)
#endif
    return std::make_unique<PlainPageFactory>(language);
}
