#pragma once

#include "json/InvalidInput.h"

#include <gtest/gtest.h>

namespace TLGateway {

// Runs the step and gives what it throws; fails the test when it throws nothing.
template <typename Step>
InvalidInput InvalidInputOf(Step step)
{
    try {
        step();
    } catch (const InvalidInput& invalid) {
        return invalid;
    }
    ADD_FAILURE() << "the input was taken";
    return {InvalidInput::Rule::Json, {}};
}

} // namespace TLGateway
