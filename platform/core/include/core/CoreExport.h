#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformCore_EXPORTS
#define TL_CORE_EXPORT Q_DECL_EXPORT
#else
#define TL_CORE_EXPORT Q_DECL_IMPORT
#endif
