#pragma once

#include "verse_files.h"

#include <gtest/gtest.h>

#include <random>

namespace test_support {

using Verses = std::vector<std::string>;

/// A record of the text file: the length, low byte first, and the verse.
inline std::string record(const std::string& verse)
{
    return std::string{static_cast<char>(verse.size()), static_cast<char>(verse.size() >> 8)} + verse;
}

/// A text file and the offsets of its verses, generated from a seed. `Layout` selects the arrangement of the
/// records.
enum class Layout
{
    contiguous,
    gaps,
    descending,
    shared,
    overlapping
};

struct MadeText
{
    std::string bytes;
    std::vector<unsigned int> places;
};

inline MadeText makeText(Layout layout, unsigned int verseCount, std::mt19937& random)
{
    const auto below = [&](unsigned int bound) { return static_cast<unsigned int>(random() % bound); };
    MadeText made;
    for (unsigned int verse = 0; verse < verseCount; ++verse) {
        if (layout == Layout::gaps)
            made.bytes += std::string(below(4), '?');
        made.places.push_back(static_cast<unsigned int>(made.bytes.size()));
        std::string text;
        for (unsigned int length = below(below(5) == 0 ? 70 : 9); length > 0; --length)
            text.push_back(static_cast<char>('a' + below(26)));
        made.bytes += record(text);
    }
    if (layout == Layout::descending)
        made.places.assign(made.places.rbegin(), made.places.rend());
    for (unsigned int& place : made.places) {
        if (layout == Layout::shared && below(3) == 0)
            place = made.places[below(verseCount)];
        if (layout == Layout::overlapping &&
            below(3) == 0) // letters read as lengths: most extend past the end
            place = below(static_cast<unsigned int>(made.bytes.size()));
    }
    return made;
}

/// A text of `count` verses "<n>" that follow each other.
inline MadeText countingText(unsigned int count)
{
    MadeText made;
    for (unsigned int verse = 0; verse < count; ++verse) {
        made.places.push_back(static_cast<unsigned int>(made.bytes.size()));
        made.bytes += record(std::to_string(verse));
    }
    return made;
}

/// All verses of a cursor until it throws; the message of the exception comes last.
inline Verses versesOf(Kedrin::Tolvo::CBibleText& text, unsigned int first, unsigned int count,
                       std::size_t pieceBytes)
{
    Verses verses;
    Kedrin::Tolvo::CVerseCursor cursor(text, first, count, pieceBytes);
    try {
        while (cursor.next()) {
            EXPECT_EQ(cursor.verseNum(), first + verses.size());
            verses.push_back("=" + std::string(cursor.text()));
        }
    } catch (const std::out_of_range& ex) {
        verses.push_back(ex.what());
    } catch (const std::ios_base::failure& ex) {
        verses.push_back(ex.what());
    }
    return verses;
}

} // namespace test_support
