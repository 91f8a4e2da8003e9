#pragma once

#include <tsl/robin_set.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Kedrin::ModTool {

/// Different texts, numbered from 0 in the order in which they were added. The table of their hashes holds only numbers:
/// it stays small beside the texts, and a look-up mostly touches one line of the processor's cache in it.
class CNumberedTexts
{
public:
    struct Added
    {
        std::uint32_t number;
        bool isNew;
    };

    CNumberedTexts() : m_numbers(0, Hash{&m_texts}, Equal{&m_texts}) {}
    CNumberedTexts(const CNumberedTexts&) = delete;
    CNumberedTexts& operator=(const CNumberedTexts&) = delete;

    std::size_t size() const { return m_texts.size(); }

    /// @returns the number of a text, which is a new one if it was not there.
    Added add(std::string_view text);

    /// Valid until the next add().
    const std::string& operator[](std::size_t number) const { return m_texts[number]; }

private:
    using Texts = std::vector<std::string>;
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const;
        std::size_t operator()(std::uint32_t number) const { return (*this)((*texts)[number]); }
        const Texts* texts;
    };
    struct Equal
    {
        using is_transparent = void;
        bool operator()(std::uint32_t left, std::uint32_t right) const { return left == right; }
        bool operator()(std::string_view text, std::uint32_t number) const
        {
            return text == (*texts)[number];
        }
        bool operator()(std::uint32_t number, std::string_view text) const
        {
            return text == (*texts)[number];
        }
        const Texts* texts;
    };

    Texts m_texts;
    tsl::robin_set<std::uint32_t, Hash, Equal, std::allocator<std::uint32_t>, true> m_numbers;
};

} // namespace Kedrin::ModTool
