#pragma once

#include "frame-core/FrameCoreExport.h"
#include "frame-core/SettingGroup.h"
#include "frame-core/SettingWidgetId.h"

#include <QtCore/QList>
#include <QtCore/QStringList>

class SettingItemBaseWidget;

/// A module's pages in the settings dialog. When several factories offer one page id, the first factory's
/// page counts: the client's own comes first, then the modules' in the order of loading. GUI thread. The
/// order of the operations is part of the contract.
class TL_FRAME_CORE_EXPORT ISysSettingFactory
{
public:
    virtual ~ISysSettingFactory();

    /// Places the pages of group `id` among the other groups, by `order`. A group that no factory places has
    /// its id as its order. An id of 0, the default, places none.
    virtual SettingGroup GetSettingGroup();
    /// The pages that exist now. Asked each time the dialog opens.
    virtual QList<SettingWidgetId> GetSettingWidgetIds() = 0;
    /// Makes a page without parent, which the dialog then owns. Null for an id of another factory. Called
    /// when the page is first shown, and again whenever the dialog makes the page again
    /// (`SettingItemBaseWidget`).
    virtual SettingItemBaseWidget* CreateSettingWidget(SettingWidgetId id) = 0;
    /// The words under which the dialog's search finds the page: it looks for the user's text inside each of
    /// them, in any case. The first word is also the page's name in the list, unless the client names the
    /// page itself; without words it is called "More settings". Asked at every search and listing, so that
    /// the words may follow the data and the language.
    virtual QStringList GetSearchKeywords(SettingWidgetId id) = 0;

protected:
    ISysSettingFactory() = default;
    Q_DISABLE_COPY(ISysSettingFactory)
};
