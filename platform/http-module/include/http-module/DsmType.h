#pragma once

/// The parts of the gateway's envelope for which a request may say something of its own.
enum class DsmType
{
    ApiUrl, ///< the gateway's address
    AppKey,
    AppSecret, ///< signs, and is never sent
    AccessToken,
    Language,
    Region,
    Platform
};
