#include "ListenAddress.h"

#include "CommandError.h"

#include <gtest/gtest.h>

namespace TLGateway {

TEST(ListenAddressTest, AddressAndPort)
{
    EXPECT_EQ(ParseListenAddress("127.0.0.1:8080").host, "127.0.0.1");
    EXPECT_EQ(ParseListenAddress("127.0.0.1:8080").port, 8080);
    EXPECT_EQ(ParseListenAddress("0.0.0.0:0").port, 0);
    EXPECT_EQ(ParseListenAddress("[::1]:65535").host, "::1");
    EXPECT_EQ(ParseListenAddress("[::1]:65535").HostForUrl(), "[::1]");
}

TEST(ListenAddressTest, OtherFormsAreRefused)
{
    for (const char* text : {"", "127.0.0.1", "8080", ":8080", "127.0.0.1:", "127.0.0.1:65536",
                             "127.0.0.1:-1", "127.0.0.1:80x", "::1:80", "127.0.0.1:000080"}) {
        EXPECT_THROW(static_cast<void>(ParseListenAddress(text)), CommandError) << text;
    }
}

} // namespace TLGateway
