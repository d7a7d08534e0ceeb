#pragma once

#include "methods/IMethod.h"

#include <map>
#include <memory>
#include <string_view>

namespace TLGateway {

// The methods by name. Filled before the first request, read-only afterwards.
class MethodRegistry final
{
public:
    MethodRegistry() = default;
    MethodRegistry(const MethodRegistry&) = delete;
    MethodRegistry& operator=(const MethodRegistry&) = delete;

    // Throws std::logic_error when there is a method with this name.
    void Add(std::unique_ptr<IMethod> method);

    // Null when there is none.
    [[nodiscard]] IMethod* Find(std::string_view name) const noexcept;

private:
    std::map<std::string_view, std::unique_ptr<IMethod>> m_methods;
};

} // namespace TLGateway
