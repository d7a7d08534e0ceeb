#include "support/TemporaryFolder.h"

#include "base/Random.h"
#include "base/Text.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace TLGateway {

TemporaryFolder::TemporaryFolder()
    : m_path(std::filesystem::temp_directory_path() / ("tl-gateway-test-" + ToHex(RandomBytes(8))))
{
    std::filesystem::create_directories(m_path);
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryFolder::Write(const std::string& name, const std::string& content) const
{
    std::ofstream stream(m_path / name, std::ios::binary);
    stream << content;
    if (!stream.flush()) {
        throw std::runtime_error("cannot write " + name);
    }
    return File(name);
}

std::string ReadBytes(const std::string& file)
{
    std::ifstream stream(std::filesystem::u8path(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void DamageFile(const std::string& file, std::size_t keep)
{
    const std::size_t size =
        static_cast<std::size_t>(std::filesystem::file_size(std::filesystem::u8path(file)));
    std::fstream stream(std::filesystem::u8path(file), std::ios::binary | std::ios::in | std::ios::out);
    stream.seekp(static_cast<std::streamoff>(keep));
    stream << std::string(size - keep, '\xA5');
    if (size <= keep || !stream.flush()) {
        throw std::runtime_error("cannot damage " + file);
    }
}

} // namespace TLGateway
