#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformFrameData_EXPORTS
#define TL_FRAME_DATA_EXPORT Q_DECL_EXPORT
#else
#define TL_FRAME_DATA_EXPORT Q_DECL_IMPORT
#endif
