#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformTabContainer_EXPORTS
#define TL_TAB_CONTAINER_EXPORT Q_DECL_EXPORT
#else
#define TL_TAB_CONTAINER_EXPORT Q_DECL_IMPORT
#endif
