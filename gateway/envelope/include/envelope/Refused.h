#pragma once

#include "envelope/Refusal.h"

#include <exception>
#include <utility>

namespace TLGateway {

// A failed check throws this; its refusal becomes the reply.
class Refused final : public std::exception
{
public:
    Refused(ErrorCode code, std::string message) : m_refusal{code, std::move(message)} {}

    [[nodiscard]] const Refusal& Reason() const noexcept { return m_refusal; }
    [[nodiscard]] const char* what() const noexcept override { return m_refusal.message.c_str(); }

private:
    Refusal m_refusal;
};

} // namespace TLGateway
