#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// The tabs to reopen after the client has restarted itself. Its text is the base64 form of a `QDataStream`
/// in its default version: the router URLs as a `QStringList`, then the belong type as a `QString`.
struct TLRestartRecord final
{
    /// Reads the text from the settings, which may be damaged; needs no more memory than a few times the size
    /// of the text. URLs that are incomplete count as none; an unreadable belong type is empty. Ignores what
    /// follows the belong type.
    [[nodiscard]] static TLRestartRecord FromText(const QString& text);
    /// Empty when the record could not be written.
    [[nodiscard]] QString ToText() const;

    /// In the order of the tabs.
    QStringList routerUrls;
    /// The belong type of the tabs' user. The tabs come back only for a user of the same belong type.
    QString belongType;
};
