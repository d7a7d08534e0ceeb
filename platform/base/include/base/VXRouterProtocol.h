#pragma once

#include "base/BaseExport.h"

#include <QtCore/QPair>
#include <QtCore/QString>
#include <QtCore/QVector>

class QObject;

/// A router URL, `tl://<module>/<path>?<key>=<percent-encoded value>`, by which the parts of the client ask
/// things of one another without knowing one another. A value. Routing happens on the GUI thread; the other
/// operations work on any thread.
class TL_BASE_EXPORT VXRouterProtocol
{
public:
    /// Accepts any text; one that is not a router URL matches nothing and routes nowhere. A malformed percent
    /// sequence, one that is not UTF-8, and a plus stay as text.
    explicit VXRouterProtocol(const QString& url);

    /// Whether this is `url`, apart from the queries of both: compares scheme and host without regard to
    /// case, the path exactly.
    bool Matches(const QString& url) const;

    /// The decoded value of a parameter, of the first one when the key occurs more than once; empty when the
    /// key is absent. Compares keys exactly.
    QString GetWith(const QString& key) const;

    /// Adds a parameter at the end, or replaces the value where the key first stands and drops further ones
    /// of that key. Encodes `value`, which is plain text. Returns this object, for chaining.
    VXRouterProtocol& With(const QString& key, const QString& value);

    /// The whole URL with all parameters, percent-encoded where needed.
    QString GetUrl() const;

    /// Routes the URL through the provided `IRouteExecutor`. False, with a warning in the log, when there is
    /// none or nobody knows the URL.
    bool Execute() const;

    /// The object behind the URL, from the provided `IRouteExecutor`. The caller does not own it. Null, with
    /// a warning in the log, when there is no router or no such object.
    QObject* GetObj() const;

private:
    QString m_base;                                // everything before the query, as given
    QVector<QPair<QString, QString>> m_parameters; // decoded, in order; a null value has no "="
    QString m_fragment;
};
