#include "frame-data/IGeneralData.h"
