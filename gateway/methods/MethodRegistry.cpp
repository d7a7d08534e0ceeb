#include "methods/MethodRegistry.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace TLGateway {

void MethodRegistry::Add(std::unique_ptr<IMethod> method)
{
    const std::string_view name = method->Name();
    if (!m_methods.try_emplace(name, std::move(method)).second) {
        throw std::logic_error("two methods with the name " + std::string(name));
    }
}

IMethod* MethodRegistry::Find(std::string_view name) const noexcept
{
    const auto found = m_methods.find(name);
    return found == m_methods.end() ? nullptr : found->second.get();
}

} // namespace TLGateway
