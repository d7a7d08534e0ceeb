#pragma once

/// Errors of a call for which Qt's network layer has no number.
enum class HttpError : int
{
    Timeout = -1,        ///< the time for the whole call ran out
    TooLarge = -2,       ///< the reply is larger than 4 MiB
    SwitchedOff = -3,    ///< `IHttpRequest::IsDegradeApi`
    InvalidAddress = -4, ///< not an http or https URL
    Redirect = -5        ///< the server redirects the call; no redirect is followed
};
