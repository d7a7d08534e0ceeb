#include "base/IDpiAdapter.h"

#include "DpiAdapters.h"

IDpiAdapter::IDpiAdapter(bool followsScale)
{
    if (followsScale) {
        DpiAdapters::Instance().Add(this);
    }
}

IDpiAdapter::~IDpiAdapter()
{
    DpiAdapters::Instance().Remove(this);
}

void IDpiAdapter::AdjustForDpi() {}
