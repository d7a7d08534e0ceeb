#pragma once

#include <string>

namespace TLGateway {

// What is sent back for one HTTP request.
struct HttpReply
{
    int status = 200;
    std::string contentType = "application/json; charset=utf-8";
    std::string body;
    std::string allow; // for 405: the methods that the resource takes
};

} // namespace TLGateway
