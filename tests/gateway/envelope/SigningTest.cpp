#include "envelope/Signing.h"

#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

TEST(SigningTest, BytesOfTheProtocolsExample)
{
    const FormParameters parameters = {{"app_key", "k"}, {"method", "m"}, {"access_token", ""}};
    EXPECT_EQ(BytesToSign(parameters), "access_token=\napp_key=k\nmethod=m\n");
    EXPECT_EQ(BytesToSign(parameters).size(), 33U);
}

TEST(SigningTest, SignOfTheProtocolsExample)
{
    const FormParameters parameters = {{"app_key", "k"}, {"method", "m"}, {"access_token", ""}};
    EXPECT_EQ(Sign(parameters, "secret"), "efff871889e304f0072a8c98f21ce604fe58d440f7a9174b326c819ae4eab7d0");
}

TEST(SigningTest, SignIsNotPartOfWhatIsSigned)
{
    FormParameters parameters = {{"app_key", "k"}, {"method", "m"}, {"access_token", ""}};
    const std::string before = Sign(parameters, "secret");
    parameters["sign"] = "anything";
    EXPECT_EQ(Sign(parameters, "secret"), before);
}

TEST(SigningTest, NamesSortByByteSoThatCapitalsComeFirstAndUmlautsLast)
{
    const FormParameters parameters = {{"b", "2"}, {"\xC3\xA4", "4"}, {"a", "3"}, {"Z", "1"}};
    EXPECT_EQ(BytesToSign(parameters), "Z=1\na=3\nb=2\n\xC3\xA4=4\n");
}

} // namespace TLGateway
