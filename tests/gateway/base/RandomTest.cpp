#include "base/Random.h"

#include <gtest/gtest.h>

namespace TLGateway {

TEST(RandomTest, RandomBytesDiffer)
{
    EXPECT_EQ(RandomBytes(32).size(), 32U);
    EXPECT_NE(RandomBytes(32), RandomBytes(32));
}

} // namespace TLGateway
