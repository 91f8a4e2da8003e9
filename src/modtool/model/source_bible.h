#pragma once

#include "source_findings.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace Kedrin::ModTool {

/// One verse of a source.
struct SourceVerse
{
    std::uint32_t book;    ///< index into SourceBible::books
    std::uint16_t chapter; ///< from 1
    std::uint16_t verse;   ///< from 1
    std::uint32_t offset;  ///< its text: bytes of SourceBible::text
    std::uint32_t byteCount;
    std::uint32_t line; ///< line of the source file, from 1; 0 where the source has no lines

    /// What verses are ordered by.
    auto position() const { return std::tuple(book, chapter, verse); }
};

/// Metadata of a source, UTF-8.
struct SourceInfo
{
    std::string fullTitle;
    std::string shortTitle;
    std::string abbreviatedTitle;
    std::vector<std::string> copyright;     ///< paragraphs of plain text
    bool keepsTitles = false;               ///< an export: its book titles are the module's own
    std::optional<std::string> differences; ///< records of _Diff_.txt from an export, used as they are
};

/// Titles of a book in a source, UTF-8; "" if not given.
struct BookTitles
{
    std::string fullTitle;
    std::string shortTitle;
    std::string abbreviatedTitle;
};

/// A book whose name or number the reader does not know.
struct UnknownBook
{
    std::uint32_t book;    ///< index into SourceBible::books, where it has the name that the source gives it
    std::string complaint; ///< for the user, with the file and the line
};

/// A Bible as read from a source: valid UTF-8, otherwise unchanged.
struct SourceBible
{
    SourceInfo info;
    std::string format;                 ///< "OSIS", in the user's language; "": not stated
    std::string versification;          ///< name of one of the SWORD library's systems; "": not stated
    std::vector<std::string> books;     ///< OSIS ids, in the order of the source
    std::vector<BookTitles> bookTitles; ///< [book], or empty
    std::vector<UnknownBook> unknownBooks;
    std::string text;                ///< the texts of all verses, one after another
    std::vector<SourceVerse> verses; ///< ascending by book, chapter and verse, without repetitions
    SourceFindings findings;         ///< what the reader counted

    /// Letters and digits of the source's text, counted independently of the reader; nothing: not counted.
    std::optional<std::uint64_t> letters;
    /// Those of the verses that stand in attributes of the source, not in its text.
    std::uint64_t attributeLetters = 0;

    std::string_view textOf(const SourceVerse& verse) const
    {
        return std::string_view(text).substr(verse.offset, verse.byteCount);
    }

    /// "Gen 1:1"
    std::string positionOf(const SourceVerse& verse) const
    {
        return books[verse.book] + ' ' + std::to_string(verse.chapter) + ':' + std::to_string(verse.verse);
    }
};

} // namespace Kedrin::ModTool
