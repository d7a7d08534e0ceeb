#include "frame-core/IBusinessModule.h"
