#include "html_entities.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

namespace Kedrin::ModTool {

namespace {

struct Entity
{
    std::string_view name;
    char32_t codePoint;
};

/// In the order of their names' bytes.
constexpr Entity entities[] = {
#include "html_entities.inc"
};

std::optional<char32_t> numberedCharacter(std::string_view digits, int base)
{
    std::uint32_t value = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, value, base);
    const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
    if (error != std::errc() || stop != end || value == 0 || value > 0x10FFFF || isSurrogate)
        return std::nullopt;
    return value;
}

} // namespace

std::optional<char32_t> referencedCharacter(std::string_view reference)
{
    if (reference.starts_with("#x") || reference.starts_with("#X"))
        return numberedCharacter(reference.substr(2), 16);
    if (reference.starts_with('#'))
        return numberedCharacter(reference.substr(1), 10);
    const auto* found =
        std::lower_bound(std::begin(entities), std::end(entities), reference,
                         [](const Entity& entity, std::string_view name) { return entity.name < name; });
    return found != std::end(entities) && found->name == reference ? std::optional(found->codePoint)
                                                                   : std::nullopt;
}

} // namespace Kedrin::ModTool
