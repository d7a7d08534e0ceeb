#include "http/IResponseCacheMethod.h"

IResponseCacheMethod::~IResponseCacheMethod() = default;
