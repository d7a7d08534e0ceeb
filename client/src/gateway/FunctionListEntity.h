#pragma once

#include "base/VXJsonParserBase.h"
#include "frame-data/TLFunctionInfo.h"

#include <QtCore/QHash>
#include <QtCore/QVariantList>

/// The gateway's answer with the function switches. A switch that cannot be understood is left out and
/// counts as a parse error of the list.
class FunctionListEntity final : public VXJsonParserBase
{
    Q_OBJECT
    Q_PROPERTY(QVariantList functions READ GetFunctionVariants)

public:
    explicit FunctionListEntity(QObject* parent = nullptr) : VXJsonParserBase(parent) {}

    QHash<int, TLFunctionInfo> GetFunctions() const { return m_functions; }

protected:
    bool ParseSpecial(const QString& key, const QJsonValue& value) override;
    QStringList GetParseErrorSpecial() const override { return m_errors; }

private:
    QVariantList GetFunctionVariants() const { return {}; }

    QHash<int, TLFunctionInfo> m_functions;
    // Until the list is seen: an answer without it is not an empty list.
    QStringList m_errors{QStringLiteral("functions: missing")};
};
