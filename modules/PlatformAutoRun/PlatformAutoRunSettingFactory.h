#pragma once

#include "frame-core/ISysSettingFactory.h"

#include <QtCore/QObject>
#include <QtCore/QSharedPointer>

/// Offers the auto-run page to the client's settings dialog while the operator's function switch 8 displays
/// it, and the words by which the dialog's search finds it. The module object makes it. GUI thread.
class PlatformAutoRunSettingFactory final : public QObject, public ISysSettingFactory
{
    Q_OBJECT

public:
    PlatformAutoRunSettingFactory();
    ~PlatformAutoRunSettingFactory() override;

    /// The one page, or none while the switch does not display it.
    QList<SettingWidgetId> GetSettingWidgetIds() override;
    /// Makes the page whatever the switch says: the dialog only asks for pages that it was offered.
    SettingItemBaseWidget* CreateSettingWidget(SettingWidgetId id) override;
    /// The page's captions, then the names and addresses of the user's entries that are known so far. Empty
    /// while the function may not be used.
    QStringList GetSearchKeywords(SettingWidgetId id) override;

private:
    Q_DISABLE_COPY(PlatformAutoRunSettingFactory)

    QSharedPointer<QObject> m_shared; // null: nothing is shared so far
};
