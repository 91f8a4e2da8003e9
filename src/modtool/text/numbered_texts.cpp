#include "numbered_texts.h"

#define XXH_INLINE_ALL // its code for short keys
#include <xxhash.h>

namespace Kedrin::ModTool {

std::size_t CNumberedTexts::Hash::operator()(std::string_view text) const
{
    return XXH3_64bits(text.data(), text.size());
}

CNumberedTexts::Added CNumberedTexts::add(std::string_view text)
{
    if (const auto known = m_numbers.find(text); known != m_numbers.end())
        return {*known, false};
    const auto number = static_cast<std::uint32_t>(m_texts.size());
    m_texts.emplace_back(text);
    m_numbers.insert(number);
    return {number, true};
}

} // namespace Kedrin::ModTool
