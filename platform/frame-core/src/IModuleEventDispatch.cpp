#include "frame-core/IModuleEventDispatch.h"
