#pragma once

#include <QtCore/qglobal.h>

#ifdef TLPlatformSettingsStore_EXPORTS
#define TL_SETTINGS_STORE_EXPORT Q_DECL_EXPORT
#else
#define TL_SETTINGS_STORE_EXPORT Q_DECL_IMPORT
#endif
