#include "real_data.h"

#include "build_fixture.h"

#include <array>
#include <cstdio>
#include <memory>

namespace build_test {

namespace {

[[maybe_unused]] std::string unpacked(const std::string& path)
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

std::string realText([[maybe_unused]] const std::string& name)
{
#ifdef KEDRIN_TEST_DATA
    const std::string path = KEDRIN_TEST_DATA "/" + name;
    if (std::filesystem::exists(path))
        return bytesOf(path);
    if (std::filesystem::exists(path + ".xz"))
        return unpacked(path + ".xz");
#endif
    return "";
}

} // namespace build_test
