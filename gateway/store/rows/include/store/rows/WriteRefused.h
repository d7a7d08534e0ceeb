#pragma once

#include "store/WriteFailure.h"

#include <stdexcept>
#include <utility>

namespace TLGateway {

// A write throws this to be undone without the other writes of its transaction.
class WriteRefused final : public std::runtime_error
{
public:
    explicit WriteRefused(WriteFailure failure)
        : std::runtime_error(failure.message), m_failure(std::move(failure))
    {}

    [[nodiscard]] const WriteFailure& Failure() const noexcept { return m_failure; }

private:
    WriteFailure m_failure;
};

} // namespace TLGateway
