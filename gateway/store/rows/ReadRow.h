#pragma once

#include "records/AppRecord.h"
#include "records/FunctionSwitch.h"
#include "records/StoredConfiguration.h"
#include "records/TokenRecord.h"
#include "records/UserRecord.h"
#include "store/rows/IQuery.h"

namespace TLGateway {

// Each makes a record of the row that the query stands on; the columns are in the order of the statements.
[[nodiscard]] UserRecord ReadUser(const IQuery& query);
[[nodiscard]] TokenRecord ReadToken(const IQuery& query);
// Throws the engine's error for damaged data when the document cannot be read.
[[nodiscard]] StoredConfiguration ReadRevision(const IQuery& query);
[[nodiscard]] AppRecord ReadApp(const IQuery& query);
[[nodiscard]] FunctionSwitch ReadSwitch(const IQuery& query);

} // namespace TLGateway
