#pragma once

#include "frame-core/FrameCoreExport.h"
#include "frame-core/SettingGroup.h"
#include "frame-core/SettingWidgetId.h"

#include <QtCore/QList>
#include <QtCore/QStringList>

class SettingItemBaseWidget;

/// A module's pages in the settings dialog. GUI thread. The order of the operations is part of the
/// contract.
class TL_FRAME_CORE_EXPORT ISysSettingFactory
{
public:
    virtual ~ISysSettingFactory();

    /// A group that the module adds to the dialog; none by default.
    virtual SettingGroup GetSettingGroup();
    /// The pages that exist now; asked for each time the dialog opens.
    virtual QList<SettingWidgetId> GetSettingWidgetIds() = 0;
    /// Makes a page, without parent; the dialog takes ownership. Null for an id of somebody else.
    virtual SettingItemBaseWidget* CreateSettingWidget(SettingWidgetId id) = 0;
    /// The words under which the dialog's search finds the page; may be empty.
    virtual QStringList GetSearchKeywords(SettingWidgetId id) = 0;

protected:
    ISysSettingFactory() = default;
    Q_DISABLE_COPY(ISysSettingFactory)
};
