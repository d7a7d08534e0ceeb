#pragma once

#include "store/rows/IDialect.h"

#include <string>

namespace TLGateway {

// The statements whose text depends on the engine.
struct Statements
{
    explicit Statements(const IDialect& dialect);

    std::string findUser;
    std::string listUsers;
    std::string addUser;
    std::string putUser;
    std::string setPassword;
    std::string findToken;
    std::string countLoginFailures;
    std::string findLoginFailure;
    std::string findNewestRevision;
    std::string listRevisions;
};

} // namespace TLGateway
