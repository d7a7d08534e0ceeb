#include "demo/DemoPages.h"

#include "EmbeddedFiles.h"

#include <stdexcept>

namespace TLGateway {

namespace {

constexpr std::string_view PageFolder = "pages/";
constexpr std::string_view PageSuffix = ".html";
constexpr std::string_view IconFolder = "icons/";

bool StartsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

std::string_view FileContent(std::string_view name)
{
    for (const EmbeddedFile& file : EmbeddedFiles()) {
        if (file.name == name) {
            return {file.bytes, file.size};
        }
    }
    throw std::logic_error("no embedded file " + std::string(name));
}

void ReplaceAll(std::string& text, std::string_view what, std::string_view by)
{
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
        text.replace(at, what.size(), by);
    }
}

// Takes the line "KEY: value" from the head of a page's source.
std::string TakeField(std::string_view& page, std::string_view key)
{
    const std::string start = std::string(key) + ": ";
    const std::size_t end = page.find('\n');
    if (!StartsWith(page, start) || end == std::string_view::npos) {
        throw std::logic_error("a demo page does not begin with " + start);
    }
    std::string value(page.substr(start.size(), end - start.size()));
    page.remove_prefix(end + 1);
    return value;
}

std::string ComposePage(std::string_view name, std::string_view source)
{
    const std::string title = TakeField(source, "title");
    const std::string accent = TakeField(source, "accent");
    const std::string accentInTheDark = TakeField(source, "accent-dark");
    std::string page(FileContent("shell.html"));
    ReplaceAll(page, "{{style}}", FileContent("style.css"));
    ReplaceAll(page, "{{title}}", title);
    ReplaceAll(page, "{{accent}}", accent);
    ReplaceAll(page, "{{accent-dark}}", accentInTheDark);
    ReplaceAll(page, "{{name}}", name);
    ReplaceAll(page, "{{body}}", source);
    return page;
}

} // namespace

DemoPages::DemoPages()
{
    for (const EmbeddedFile& file : EmbeddedFiles()) {
        const std::string_view fileName = file.name;
        const std::string_view content(file.bytes, file.size);
        if (StartsWith(fileName, PageFolder)) {
            const std::string name(
                fileName.substr(PageFolder.size(), fileName.size() - PageFolder.size() - PageSuffix.size()));
            m_pages[name] = {"text/html; charset=utf-8", ComposePage(name, content)};
        } else if (StartsWith(fileName, IconFolder)) {
            m_pages[std::string(fileName)] = {"image/svg+xml", std::string(content)};
        }
    }
}

const DemoPages::Page* DemoPages::Find(std::string_view path) const noexcept
{
    const auto found = m_pages.find(path);
    return found == m_pages.end() ? nullptr : &found->second;
}

} // namespace TLGateway
