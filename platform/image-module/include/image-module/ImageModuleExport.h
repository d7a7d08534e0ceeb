#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformImageModule_EXPORTS
#define TL_IMAGE_MODULE_EXPORT Q_DECL_EXPORT
#else
#define TL_IMAGE_MODULE_EXPORT Q_DECL_IMPORT
#endif
