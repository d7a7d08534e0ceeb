#include "FuzzTarget.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

std::vector<uint8_t> ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

int Replay(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (const std::filesystem::path& file : files) {
        std::cout << file.filename().string() << std::endl; // flushed before the bytes can crash the reader
        const std::vector<uint8_t> bytes = ReadFile(file);
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
    return static_cast<int>(files.size());
}

} // namespace

/// Feeds every file in the folders on the command line to the target.
int main(int argc, char** argv)
{
    try {
        int count = 0;
        for (int i = 1; i < argc; ++i) {
            count += Replay(argv[i]);
        }
        if (count == 0) {
            std::cerr << "there was nothing to replay" << std::endl;
            return 1;
        }
        std::cout << count << " files replayed" << std::endl;
        return 0;
    } catch (const std::exception& problem) {
        std::cerr << problem.what() << std::endl;
        return 1;
    }
}
