#include "real_data.h"

#include "build_fixture.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace build_test {

namespace {

std::string unpacked(const std::string& path)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(
        ::popen(("xz -dc '" + path + "'").c_str(), "r"), ::pclose);
    std::string text;
    std::array<char, 65536> piece;
    while (pipe) {
        const std::size_t count = std::fread(piece.data(), 1, piece.size(), pipe.get());
        if (count == 0)
            break;
        text.append(piece.data(), count);
    }
    EXPECT_FALSE(text.empty()) << path;
    return text;
}

} // namespace

std::string realText(const std::string& name)
{
    const char* folder = std::getenv("KEDRIN_TEST_DATA");
    const std::string path = (folder ? folder : KEDRIN_NEIGHBOUR_DATA) + ('/' + name);
    if (std::filesystem::exists(path))
        return bytesOf(path);
    return std::filesystem::exists(path + ".xz") ? unpacked(path + ".xz") : "";
}

} // namespace build_test
