#include "frame-core/IBrowserTab.h"

IBrowserTab::~IBrowserTab() = default;
