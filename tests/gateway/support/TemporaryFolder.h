#pragma once

#include <filesystem>
#include <string>

namespace TLGateway {

// A fresh folder for one test, removed with everything in it.
class TemporaryFolder final
{
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] std::string File(const std::string& name) const { return (m_path / name).u8string(); }

    // Makes a file with this content and gives its path.
    [[nodiscard]] std::string Write(const std::string& name, const std::string& content) const;

private:
    std::filesystem::path m_path;
};

// The whole content of a file.
[[nodiscard]] std::string ReadBytes(const std::string& file);

// Writes noise over everything in the file behind the first `keep` bytes.
void DamageFile(const std::string& file, std::size_t keep);

} // namespace TLGateway
