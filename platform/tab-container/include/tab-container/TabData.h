#pragma once

#include "tab-container/TabContainerExport.h"

#include <QtCore/QString>

/// What a tab shows of itself, and its kind. Shared: the tab and its reader see the same object. GUI thread.
class TL_TAB_CONTAINER_EXPORT TabData final
{
public:
    TabData(int type, const QString& title, const QString& iconUrl);

    QString GetTitle() const;
    /// The address of the icon; empty when there is none.
    QString GetIconUrl() const;
    /// One of `TabType`.
    int GetType() const noexcept;

    void SetTitle(const QString& title);
    void SetIconUrl(const QString& iconUrl);

private:
    QString m_title;
    QString m_iconUrl;
    int m_type;
};
