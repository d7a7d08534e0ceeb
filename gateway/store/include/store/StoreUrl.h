#pragma once

#include <string>
#include <string_view>

namespace TLGateway {

enum class StoreKind
{
    Sqlite,
    Postgres,
};

// What a database URL asks for: "sqlite:FILE", or "postgresql://…" ("postgres://…"). Throws
// std::invalid_argument with a text for the operator when the URL has another form.
[[nodiscard]] StoreKind KindOfUrl(std::string_view url);

// The file that a database URL "sqlite:FILE" names [UTF-8]. Throws std::invalid_argument with a text for the
// operator when the URL has another form.
[[nodiscard]] std::string SqliteFileOfUrl(std::string_view url);

// The URL with *** for what may be a password, for texts that are shown.
[[nodiscard]] std::string WithoutPassword(std::string_view url);

} // namespace TLGateway
