#include "Scratch.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder()
{
    std::random_device random;
    fs::path path;
    do
        path = fs::temp_directory_path() / ("zek-test-" + std::to_string(random()));
    while (!fs::create_directory(path));
    m_path = path.string();
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

std::string ScratchFolder::Path(const std::string& name) const
{
    return (fs::path(m_path) / name).string();
}

std::string ReadWholeFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void WriteWholeFile(const std::string& path, const std::string& content)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
}
