#pragma once

#include "base/BaseExport.h"

#include <QtCore/QPair>
#include <QtCore/QString>
#include <QtCore/QVector>

class QObject;

/// A router URL, `tl://<module>/<path>?<key>=<percent-encoded value>`, by which the parts of the client
/// ask one another for things without knowing one another. A value: copy it freely. Routing happens on
/// the GUI thread; the other operations work on any thread.
class TL_BASE_EXPORT VXRouterProtocol
{
public:
    /// Any text is taken; one that is no router URL matches nothing and routes nowhere. A percent
    /// sequence that is malformed or no UTF-8 stays as text, and so does a plus.
    explicit VXRouterProtocol(const QString& url);

    /// Whether the URL is `url` but for the query: scheme and host without regard to case, the path
    /// exactly. A query in `url` is ignored as well.
    bool Matches(const QString& url) const;

    /// The decoded value of a parameter; of the first one when the key occurs more than once. Empty
    /// when the key is absent. Keys are compared exactly.
    QString GetWith(const QString& key) const;

    /// Adds a parameter at the end, or replaces the value where the key stands first, dropping further
    /// ones of the same key. `value` is plain text, encoded here. Returns this object, for chaining.
    VXRouterProtocol& With(const QString& key, const QString& value);

    /// The whole URL with all parameters, percent-encoded where needed.
    QString GetUrl() const;

    /// Routes the URL through the provided `IRouteExecutor`. False when there is none or nobody knows
    /// the URL; a warning in the log says so.
    bool Execute() const;

    /// Asks the provided `IRouteExecutor` for the object behind the URL. Not owned by the caller.
    /// Null when there is no router or no such object.
    QObject* GetObj() const;

private:
    QString m_base;                                // everything before the query, as given
    QVector<QPair<QString, QString>> m_parameters; // decoded, in order; a null value: no "="
    QString m_fragment;
};
