#pragma once

/// The parts of the gateway's envelope that a request may set for itself.
enum class DsmType
{
    ApiUrl, ///< the gateway's address
    AppKey,
    AppSecret, ///< signs the call and is never sent
    AccessToken,
    Language,
    Region,
    Platform
};
