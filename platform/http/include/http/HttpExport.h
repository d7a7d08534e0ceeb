#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformHttp_EXPORTS
#define TL_HTTP_EXPORT Q_DECL_EXPORT
#else
#define TL_HTTP_EXPORT Q_DECL_IMPORT
#endif
