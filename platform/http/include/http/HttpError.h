#pragma once

/// Errors of a call that Qt's network layer has no number for.
enum class HttpError : int
{
    Timeout = -1,        ///< the time for the whole call was over
    TooLarge = -2,       ///< the reply has more than 4 MiB
    SwitchedOff = -3,    ///< `IHttpRequest::IsDegradeApi`
    InvalidAddress = -4, ///< no http or https URL
    Redirect = -5        ///< the server sent the call elsewhere, which is not followed
};
