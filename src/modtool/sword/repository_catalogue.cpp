#include "repository_catalogue.h"

#include "ascii.h"
#include "errors.h"
#include "messages.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>

namespace Kedrin::ModTool {

namespace {

constexpr std::size_t maxCatalogueBytes = 128 << 20;
constexpr std::size_t maxNameBytes = 100;
constexpr std::size_t blockBytes = 512; ///< of a tar file
constexpr std::string_view configurations = "mods.d/";
constexpr std::string_view extension = ".conf";

[[noreturn]] void failNoCatalogue() { throw CBuildError(tr("is not a catalogue of SWORD texts")); }

std::string unzipped(const std::string& gz)
{
    constexpr int gzipOnly = 15 + 16; // the largest window
    z_stream stream = {};
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(gz.data()));
    stream.avail_in = static_cast<uInt>(gz.size());
    if (::inflateInit2(&stream, gzipOnly) != Z_OK)
        failNoCatalogue();
    const std::unique_ptr<z_stream, int (*)(z_stream*)> end(&stream, ::inflateEnd);
    std::string content;
    std::array<char, 1 << 16> buffer;
    for (int state = Z_OK; state != Z_STREAM_END;) {
        stream.next_out = reinterpret_cast<Bytef*>(buffer.data());
        stream.avail_out = buffer.size();
        state = ::inflate(&stream, Z_NO_FLUSH);
        if (state != Z_OK && state != Z_STREAM_END)
            failNoCatalogue();
        content.append(buffer.data(), buffer.size() - stream.avail_out);
        if (content.size() > maxCatalogueBytes)
            throw CBuildError(message("is a catalogue of more than %s MiB", maxCatalogueBytes >> 20));
    }
    return content;
}

/// The text of a field of a tar header, which ends with a zero byte or with the field.
std::string_view field(std::string_view header, std::size_t offset, std::size_t byteCount)
{
    const std::string_view whole = header.substr(offset, byteCount);
    return whole.substr(0, whole.find('\0'));
}

std::optional<std::size_t> octal(std::string_view digits)
{
    digits.remove_prefix(std::min(digits.find_first_not_of(' '), digits.size()));
    std::size_t value = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 8);
    const bool isWhole = std::all_of(stop, digits.data() + digits.size(), [](char c) { return c == ' '; });
    return error == std::errc() && isWhole ? std::optional(value) : std::nullopt;
}

/// Whether it is the name of a configuration in the catalogue's folder itself.
bool isConfiguration(std::string_view name)
{
    if (name.starts_with("./"))
        name.remove_prefix(2);
    return name.starts_with(configurations) && name.ends_with(extension) &&
           name.find('/', configurations.size()) == std::string_view::npos;
}

/// Takes a line from the text; one that ends with '\' goes on in the next, as a paragraph of its own.
std::string takeLine(std::string_view& text)
{
    std::string line;
    while (true) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view piece = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (piece.ends_with('\r'))
            piece.remove_suffix(1);
        if (!piece.ends_with('\\') || text.empty())
            return line.append(piece);
        piece.remove_suffix(1);
        line.append(piece).append("\\par ");
    }
}

} // namespace

std::string SwordDescription::entry(std::string_view key) const
{
    const auto found =
        std::find_if(entries.begin(), entries.end(), [&](const auto& each) { return each.first == key; });
    return found != entries.end() ? found->second : std::string();
}

std::vector<SwordDescription> readSwordConfiguration(std::string_view text)
{
    std::vector<SwordDescription> sections;
    while (!text.empty()) {
        const std::string whole = takeLine(text);
        const std::string_view line = trimmed(whole);
        const std::size_t sign = line.find('=');
        if (line.starts_with('[') && line.ends_with(']'))
            sections.push_back({std::string(line.substr(1, line.size() - 2)), {}});
        else if (!line.starts_with('#') && sign != std::string_view::npos && !sections.empty())
            sections.back().entries.emplace_back(trimmed(line.substr(0, sign)),
                                                 trimmed(line.substr(sign + 1)));
    }
    return sections;
}

std::string swordConfiguration(const SwordDescription& description)
{
    std::string text = '[' + description.name + "]\n";
    for (const auto& [key, value] : description.entries)
        text.append(key).append(1, '=').append(value).append(1, '\n');
    return text;
}

std::vector<std::string> readSwordCatalogue(const std::string& tarGz)
{
    const std::string tar = unzipped(tarGz);
    std::vector<std::string> files;
    for (std::size_t place = 0; place + blockBytes <= tar.size();) {
        const std::string_view header = std::string_view(tar).substr(place, blockBytes);
        if (header.front() == '\0')
            break;
        const std::optional<std::size_t> size = octal(field(header, 124, 12));
        place += blockBytes;
        if (!size || *size > tar.size() - place)
            failNoCatalogue();
        const char type = header[156];
        const bool isFile = type == '0' || type == '\0';
        if (isFile && isConfiguration(field(header, 0, 100)))
            files.push_back(tar.substr(place, *size));
        place += (*size + blockBytes - 1) / blockBytes * blockBytes;
    }
    if (files.empty())
        failNoCatalogue();
    return files;
}

bool isSafeName(std::string_view name)
{
    constexpr std::string_view others = "-_.+";
    const auto isSafe = [&](char c) {
        return isAsciiLetter(c) || isAsciiDigit(c) || others.find(c) != std::string_view::npos;
    };
    return !name.empty() && name.size() <= maxNameBytes && !name.starts_with('.') &&
           std::all_of(name.begin(), name.end(), isSafe);
}

bool isSafePath(std::string_view path)
{
    if (path.starts_with("./"))
        path.remove_prefix(2);
    if (path.ends_with('/'))
        path.remove_suffix(1);
    while (true) {
        const std::size_t end = std::min(path.find('/'), path.size());
        if (!isSafeName(path.substr(0, end)))
            return false;
        if (end == path.size())
            return true;
        path.remove_prefix(end + 1);
    }
}

} // namespace Kedrin::ModTool
