#pragma once

/// What the address bar says of the connection that a page came over.
enum class Security
{
    None, ///< there is no page
    Secure,
    NotSecure
};
