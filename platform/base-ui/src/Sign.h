#pragma once

/// What a message is about, recognisable without its colour.
enum class Sign
{
    Information,
    Success,
    Warning,
    Error,
};
