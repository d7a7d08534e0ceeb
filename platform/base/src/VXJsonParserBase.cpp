#include "base/VXJsonParserBase.h"
