#pragma once

#include "envelope/Refused.h"

#include <gtest/gtest.h>

#include <string>

namespace TLGateway {

// Runs the step and gives its refusal; fails the test when there is none.
template <typename Step>
Refusal RefusalOf(Step step)
{
    try {
        step();
    } catch (const Refused& refused) {
        return refused.Reason();
    }
    ADD_FAILURE() << "nothing was refused";
    return {ErrorCode::Success, {}};
}

} // namespace TLGateway
