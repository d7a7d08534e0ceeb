#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformFrameCore_EXPORTS
#define TL_FRAME_CORE_EXPORT Q_DECL_EXPORT
#else
#define TL_FRAME_CORE_EXPORT Q_DECL_IMPORT
#endif
