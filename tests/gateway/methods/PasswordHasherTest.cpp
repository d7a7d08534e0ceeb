#include "methods/PasswordHasher.h"

#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

namespace {

constexpr PasswordHasher::Cost Cheap = {1, 8, 1};

} // namespace

TEST(PasswordHasherTest, VerifiesThePasswordThatItHashed)
{
    const PasswordHasher hasher(Cheap);
    const std::string hash = hasher.Hash("pass 订");
    EXPECT_EQ(hash.rfind("$argon2id$v=19$m=8,t=1,p=1$", 0), 0U) << hash;
    EXPECT_TRUE(hasher.Verify("pass 订", hash));
    EXPECT_FALSE(hasher.Verify("pass", hash));
    EXPECT_FALSE(hasher.Verify("", hash));
}

TEST(PasswordHasherTest, SaltsEveryHash)
{
    const PasswordHasher hasher(Cheap);
    EXPECT_NE(hasher.Hash("x"), hasher.Hash("x"));
}

TEST(PasswordHasherTest, DefaultCostIsNineteenMebibytesAndTwoPasses)
{
    EXPECT_EQ(PasswordHasher().Decoy().rfind("$argon2id$v=19$m=19456,t=2,p=1$", 0), 0U);
}

TEST(PasswordHasherTest, UnreadableHashIsNoMatch)
{
    const PasswordHasher hasher(Cheap);
    EXPECT_FALSE(hasher.Verify("x", ""));
    EXPECT_FALSE(hasher.Verify("x", "$argon2id$nonsense"));
}

TEST(PasswordHasherTest, HashOfAnotherCostIsStillVerified)
{
    const std::string hash = PasswordHasher({2, 16, 1}).Hash("x");
    EXPECT_TRUE(PasswordHasher(Cheap).Verify("x", hash));
}

} // namespace TLGateway
