#include "http/HttpCallKind.h"

#include "http/IHttpResponse.h"
#include "http/IResponseCacheMethod.h"

bool HttpCallKind::IsWrite(const IHttpResponse& response)
{
    const auto* const keeping = dynamic_cast<const IResponseCacheMethod*>(&response);
    return keeping == nullptr || !keeping->IsAutoCache();
}
