#include "frame-data/TLFunctionInfo.h"

TLFunctionInfo::TLFunctionInfo(bool valid, bool display) noexcept : m_valid(valid), m_display(display) {}

bool TLFunctionInfo::IsValid() const noexcept
{
    return m_valid;
}

bool TLFunctionInfo::IsDisplay() const noexcept
{
    return m_display;
}
