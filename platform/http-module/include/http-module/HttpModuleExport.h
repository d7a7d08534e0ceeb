#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformHttpModule_EXPORTS
#define TL_HTTP_MODULE_EXPORT Q_DECL_EXPORT
#else
#define TL_HTTP_MODULE_EXPORT Q_DECL_IMPORT
#endif
