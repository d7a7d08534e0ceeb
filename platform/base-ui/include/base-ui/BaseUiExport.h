#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformBaseUi_EXPORTS
#define TL_BASE_UI_EXPORT Q_DECL_EXPORT
#else
#define TL_BASE_UI_EXPORT Q_DECL_IMPORT
#endif
