#include "files.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace solvanta::pictures {

Bytes read_file(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    Bytes bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream) {
        throw std::runtime_error(path.string() + ": cannot be read");
    }
    return bytes;
}

void write_file(const std::filesystem::path& path, const Bytes& bytes) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(reinterpret_cast<const char*>(bytes.data()),
                 static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw std::runtime_error(path.string() + ": cannot be written");
    }
}

}  // namespace solvanta::pictures
