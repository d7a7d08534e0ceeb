#pragma once

#include <string>

namespace TLGateway {

// One entry of a user's configuration: a page or an app that the client opens after the log-in.
struct AutoRunEntry
{
    std::string itemId;
    std::string name;
    std::string url;         // address of a page, or service code of an app (type 1)
    bool systemItem = false; // belongs to the operator
    bool checked = false;    // opens at start
    bool activeItem = false; // opens first
    int type = 0;            // 1: app; any other value: web page

    friend bool operator==(const AutoRunEntry& a, const AutoRunEntry& b)
    {
        return a.itemId == b.itemId && a.name == b.name && a.url == b.url && a.systemItem == b.systemItem &&
               a.checked == b.checked && a.activeItem == b.activeItem && a.type == b.type;
    }
    friend bool operator!=(const AutoRunEntry& a, const AutoRunEntry& b) { return !(a == b); }
};

} // namespace TLGateway
