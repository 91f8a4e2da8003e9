#pragma once

#include "errors.h"
#include "source_bible.h"
#include "text_input.h"

#include <cstdlib>
#include <string>
#include <string_view>
#include <tuple>

namespace fuzz {

constexpr std::size_t maxSourceFuzzBytes = 16384; // enough for every construct of a format, many times

/// Reads a source by `read()`, which may throw only CBuildError, and checks the guarantees of SourceBible:
/// positions in range, ascending and unique; texts inside the text.
template <typename Read>
void walkBible(Read&& read)
{
    using namespace Kedrin::ModTool;
    try {
        const SourceBible bible = read();
        auto last = std::tuple(0u, 0u, 0u);
        for (const SourceVerse& verse : bible.verses) {
            const auto position = std::tuple(verse.book + 1u, unsigned{verse.chapter}, unsigned{verse.verse});
            if (position <= last || verse.book >= bible.books.size() || verse.chapter == 0 ||
                verse.verse == 0 || verse.offset > bible.text.size() ||
                verse.byteCount > bible.text.size() - verse.offset)
                std::abort();
            last = position;
        }
        if (!bible.bookTitles.empty() && bible.bookTitles.size() != bible.books.size())
            std::abort();
    } catch (const CBuildError&) {
    }
}

/// The same for a text, which `read` gets if it is UTF-8.
template <typename Read>
void walkSource(const std::uint8_t* data, std::size_t size, Read&& read)
{
    if (size <= maxSourceFuzzBytes)
        walkBible([&] {
            return read(Kedrin::ModTool::decodedText(std::string(reinterpret_cast<const char*>(data), size),
                                                     "f", ""));
        });
}

} // namespace fuzz
