#pragma once

/// Positions of tabs while others move.
namespace TabOrder {

/// Where the tab at `index` stands after one has moved. An index below 0 stays.
constexpr int Follow(int index, int from, int to)
{
    if (index == from) {
        return to;
    }
    if (from < index && index <= to) {
        return index - 1;
    }
    if (to <= index && index < from) {
        return index + 1;
    }
    return index;
}

} // namespace TabOrder
