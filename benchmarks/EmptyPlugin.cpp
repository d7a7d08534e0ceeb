#include "EmptyPlugin.h"
