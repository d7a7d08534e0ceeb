#include "store/StoreUrl.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace TLGateway {

TEST(StoreUrl, FileAfterTheScheme)
{
    EXPECT_EQ(SqliteFileOfUrl("sqlite:a.db"), "a.db");
    EXPECT_EQ(SqliteFileOfUrl("sqlite:/var/lib/a b.db"), "/var/lib/a b.db");
    EXPECT_EQ(SqliteFileOfUrl("sqlite:C:\\data\\a.db"), "C:\\data\\a.db");
}

TEST(StoreUrl, OtherFormsAreRefusedWithAnExample)
{
    for (const char* url : {"", "a.db", "sqlite", "sqlite:", "postgresql://host/db", "SQLITE:a.db",
                            "sqlite://a.db", "sqlite::memory:"}) {
        try {
            static_cast<void>(SqliteFileOfUrl(url));
            ADD_FAILURE() << url;
        } catch (const std::invalid_argument& error) {
            EXPECT_NE(std::string(error.what()).find("sqlite:"), std::string::npos) << url;
        }
    }
}

} // namespace TLGateway
