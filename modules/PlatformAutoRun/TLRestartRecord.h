#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// The tabs to reopen after the client restarted itself. As text it is the base64 form of a `QDataStream`
/// in its default version: the router URLs as a `QStringList`, then the belong type as a `QString`.
struct TLRestartRecord final
{
    /// Reads what stands in the settings, which may be damaged; takes no more memory than a few times the
    /// text's own size. URLs that cannot be read to their end are no URLs at all; a belong type that cannot
    /// be read is empty. What follows the belong type is ignored.
    [[nodiscard]] static TLRestartRecord FromText(const QString& text);
    /// Empty when the record could not be written.
    [[nodiscard]] QString ToText() const;

    /// In the order of the tabs.
    QStringList routerUrls;
    /// Of the user whose tabs these are. The tabs come back for a user of the same belong type only.
    QString belongType;
};
