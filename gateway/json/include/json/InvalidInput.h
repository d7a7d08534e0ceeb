#pragma once

#include <stdexcept>
#include <string>

namespace TLGateway {

// Something from outside breaks a rule. The text tells its sender where, and which rule.
class InvalidInput final : public std::runtime_error
{
public:
    enum class Rule
    {
        Json,  // it is not JSON
        Shape, // a member is missing, unknown or of the wrong type
        Limit, // it is too long, too many, too deep, out of range, or occurs twice
    };

    InvalidInput(Rule rule, const std::string& message) : std::runtime_error(message), m_rule(rule) {}

    [[nodiscard]] Rule BrokenRule() const noexcept { return m_rule; }

private:
    Rule m_rule;
};

} // namespace TLGateway
