#include "OutputFile.h"

#include "ImageError.h"

#include <cstdio>
#include <fstream>
#include <iterator>

namespace image {

Bytes ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    const Bytes content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in) {
        throw ImageError(path + ": cannot be read");
    }
    return content;
}

void WriteFile(const std::string& path, const Bytes& content) {
    const std::string part = path + ".part";
    std::ofstream out(part, std::ios::binary);
    out.write(reinterpret_cast<const char*>(content.data()),
              static_cast<std::streamsize>(content.size()));
    out.close();
    if (!out || std::rename(part.c_str(), path.c_str()) != 0) {
        std::remove(part.c_str());
        throw ImageError(path + ": cannot be written");
    }
}

}  // namespace image
