#pragma once

#include "http/HttpExport.h"

class IHttpResponse;

/// Tells calls that may change something on the server from calls that only ask.
class TL_HTTP_EXPORT HttpCallKind final
{
public:
    HttpCallKind() = delete;

    /// Whether a call with this response is a write. Every call is one, unless its response allows a kept
    /// reply to serve (`IResponseCacheMethod::IsAutoCache`): a kept reply can stand in for a question, but
    /// never for a change. The request has no say: its cache key is also empty while nobody is signed in, and
    /// may change while the call is in flight. Ask when the call is sent. GUI thread.
    [[nodiscard]] static bool IsWrite(const IHttpResponse& response);
};
