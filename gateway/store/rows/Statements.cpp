#include "Statements.h"

namespace TLGateway {

Statements::Statements(const IDialect& dialect)
{
    const std::string user = dialect.UserTable();
    const std::string selectUser = "SELECT pin, belong_type, password_hash FROM " + user;
    findUser = selectUser + " WHERE pin = $1";
    listUsers = selectUser + " ORDER BY pin";

    const std::string insertUser =
        "INSERT INTO " + user +
        " (pin, belong_type, password_hash) VALUES ($1, $2, $3) ON CONFLICT (pin) DO ";
    addUser = insertUser + "NOTHING";
    putUser =
        insertUser + "UPDATE SET belong_type = excluded.belong_type, password_hash = excluded.password_hash";
    setPassword = "UPDATE " + user + " SET password_hash = $2 WHERE pin = $1";

    findToken = "SELECT hash, pin, belong_type, device_id, " + dialect.SecondsOf("expires_at") +
                " FROM access_token WHERE hash = $1";
    countLoginFailures =
        "SELECT count(*) FROM login_failure WHERE pin = $1 AND failed_at > " + dialect.TimeOf("$2");
    findLoginFailure = "SELECT " + dialect.SecondsOf("failed_at") +
                       " FROM login_failure WHERE pin = $1 ORDER BY failed_at DESC LIMIT 1 OFFSET $2";

    listRevisions = "SELECT revision, author, " + dialect.SecondsOf("written_at") +
                    ", document FROM configuration WHERE pin = $1 ORDER BY revision DESC";
    findNewestRevision = listRevisions + " LIMIT 1";
}

} // namespace TLGateway
