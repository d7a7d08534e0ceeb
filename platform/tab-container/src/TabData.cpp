#include "tab-container/TabData.h"
