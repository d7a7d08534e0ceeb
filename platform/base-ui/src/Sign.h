#pragma once

/// What a message is about, at a glance and without its colour.
enum class Sign
{
    Information,
    Success,
    Warning,
    Error,
};
