#include "ReadRow.h"

#include "records/ConfigurationJson.h"
#include "json/BusinessJson.h"
#include "json/InvalidInput.h"

#include <string>

namespace TLGateway {

UserRecord ReadUser(const IQuery& query)
{
    return {query.Text(0), query.Text(1), query.Text(2)};
}

TokenRecord ReadToken(const IQuery& query)
{
    return {query.Blob(0), query.Text(1), query.Text(2), query.Text(3), query.Integer(4)};
}

StoredConfiguration ReadRevision(const IQuery& query)
{
    StoredConfiguration stored;
    stored.revision = query.Integer(0);
    stored.author = query.Text(1);
    stored.writtenAt = query.Integer(2);
    try {
        const boost::json::value document = ParseBusinessJson(query.Text(3));
        stored.configuration =
            ReadConfiguration(JsonObjectReader(document, "$"), ConfigurationSource::Operator);
    } catch (const InvalidInput& invalid) {
        query.ThrowDamaged(std::string("a stored configuration cannot be read: ") + invalid.what());
    }
    return stored;
}

AppRecord ReadApp(const IQuery& query)
{
    return {query.Text(0), query.Text(1), query.Text(2), query.Text(3), static_cast<int>(query.Integer(4))};
}

FunctionSwitch ReadSwitch(const IQuery& query)
{
    return {static_cast<int>(query.Integer(0)), query.Boolean(1), query.Boolean(2)};
}

} // namespace TLGateway
