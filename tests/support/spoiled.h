#pragma once

#include "temp_folder.h"

#include <string>
#include <vector>

namespace test_support {

/// Calls `use(bytes)` with every proper prefix of `whole`, the empty one first.
template <typename Use>
void forEveryCut(const std::string& whole, Use use)
{
    for (std::size_t length = 0; length < whole.size(); ++length)
        use(whole.substr(0, length));
}

/// Calls `use(bytes)` with `whole` after changing each byte to each of the values with a meaning in one of
/// the formats (ends of lines and texts, signs, digits, the limits of a byte), and with each single bit
/// flipped.
template <typename Use>
void forEverySpoiledByte(const std::string& whole, Use use)
{
    for (std::size_t place = 0; place < whole.size(); ++place) {
        std::string values("\0\t\n\r +-09,a\x7F\x80\x98\xE0\xFF", 16);
        for (unsigned int bit = 0; bit < 8; ++bit)
            values.push_back(static_cast<char>(static_cast<unsigned char>(whole[place]) ^ (1u << bit)));
        for (const char value : values) {
            std::string spoiled = whole;
            spoiled[place] = value;
            use(spoiled);
        }
    }
}

struct NamedPath
{
    std::string defect;
    std::string path;
};

/// Names under which no file can be opened for reading, not even by root: no file, a directory, a pipe (which
/// must not block), a device, a dangling link, a link to itself, a name below a file, one that is too long.
std::vector<NamedPath> unopenableFiles(const TempFolder& folder);

} // namespace test_support
