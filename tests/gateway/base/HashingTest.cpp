#include "base/Hashing.h"

#include "base/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

namespace {

struct HmacVector
{
    const char* name;
    std::string key;
    std::string data;
    const char* mac;
};

std::string Repeat(std::size_t count, char c)
{
    return std::string(count, c);
}

std::string CountingKey()
{
    std::string key;
    for (char c = 1; c <= 25; ++c) {
        key += c;
    }
    return key;
}

// RFC 4231, all cases but the truncated one.
const HmacVector Vectors[] = {
    {"Case1", Repeat(20, '\x0b'), "Hi There",
     "b0344c61d8db38535ca8afceaf0bf12b881dc200c9833da726e9376c2e32cff7"},
    {"Case2ShortKey", "Jefe", "what do ya want for nothing?",
     "5bdcc146bf60754e6a042426089575c75a003f089d2739839dec58b964ec3843"},
    {"Case3", Repeat(20, '\xaa'), Repeat(50, '\xdd'),
     "773ea91e36800e46854db8ebd09181a72959098b3ef8c122d9635514ced565fe"},
    {"Case4", CountingKey(), Repeat(50, '\xcd'),
     "82558a389a443c0ea4cc819899f2083a85f0faa3e578f8077a2e3ff46729665b"},
    {"Case6KeyLongerThanABlock", Repeat(131, '\xaa'),
     "Test Using Larger Than Block-Size Key - Hash Key First",
     "60e431591ee0b67f0d8a26aacbf5b77f8e0bc6213728c5140546040f0ee37f54"},
    {"Case7KeyAndDataLongerThanABlock", Repeat(131, '\xaa'),
     "This is a test using a larger than block-size key and a larger than block-size data. The key needs to "
     "be "
     "hashed before being used by the HMAC algorithm.",
     "9b09ffa71b942fcb27635fbcd5b0e944bfdc63644f0713938a7f51535c3a35e2"},
};

} // namespace

class HmacTest : public testing::TestWithParam<HmacVector>
{};

TEST_P(HmacTest, GivesThePublishedValue)
{
    EXPECT_EQ(ToHex(HmacSha256(GetParam().key, GetParam().data)), GetParam().mac);
}

INSTANTIATE_TEST_SUITE_P(Rfc4231, HmacTest, testing::ValuesIn(Vectors),
                         [](const auto& vector) { return std::string(vector.param.name); });

TEST(HashingTest, EmptyKeyIsNotTheKeyOfTheCallBefore)
{
    static_cast<void>(HmacSha256("some key", "data"));
    EXPECT_EQ(ToHex(HmacSha256("", "")), "b613679a0814d9ec772f95d778c35fc5ff1697c493715653c6c712144292c5ad");
}

TEST(HashingTest, EqualInConstantTimeNeedsTheSameLength)
{
    EXPECT_TRUE(EqualInConstantTime("abc", "abc"));
    EXPECT_FALSE(EqualInConstantTime("abc", "abd"));
    EXPECT_FALSE(EqualInConstantTime("abc", "ab"));
    EXPECT_TRUE(EqualInConstantTime("", ""));
}

TEST(HashingTest, Sha256OfNothingAndOfAbc)
{
    EXPECT_EQ(ToHex(Sha256("")), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(ToHex(Sha256("abc")), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

} // namespace TLGateway
