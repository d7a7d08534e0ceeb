#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformBase_EXPORTS
#define TL_BASE_EXPORT Q_DECL_EXPORT
#else
#define TL_BASE_EXPORT Q_DECL_IMPORT
#endif
