#pragma once

#include "temp_folder.h"
#include "varied_text.h"

#include <span>

namespace varied_test {

/// A format, and a source of a text in it.
struct Format
{
    const char* name;   ///< "plain-table"
    const char* corpus; ///< the folder of fuzz/corpus with inputs of it
    std::vector<File> (*write)(const Text& text, CRandom& random);
};

/// Writes the files of a source into a folder, in place of others. Several files, and one that is named after its book,
/// are a folder.
/// @returns the path of the source
std::string writeSource(const std::vector<File>& files, const test_support::TempFolder& folder);

/// Every format that is detected from the content.
std::span<const Format> formats();

std::vector<File> writeBeblia(const Text& text, CRandom& random);
std::vector<File> writeCes(const Text& text, CRandom& random);
std::vector<File> writeJson(const Text& text, CRandom& random);
std::vector<File> writeOpenSong(const Text& text, CRandom& random);
std::vector<File> writeOsis(const Text& text, CRandom& random);
std::vector<File> writePlainHashed(const Text& text, CRandom& random);
std::vector<File> writePlainHeadings(const Text& text, CRandom& random);
std::vector<File> writePlainReferences(const Text& text, CRandom& random);
std::vector<File> writePlainTable(const Text& text, CRandom& random);
std::vector<File> writeSqlite(const Text& text, CRandom& random);
std::vector<File> writeUsfm(const Text& text, CRandom& random);
std::vector<File> writeUsfx(const Text& text, CRandom& random);
std::vector<File> writeUsx(const Text& text, CRandom& random);
std::vector<File> writeVerseLines(const Text& text, CRandom& random);
std::vector<File> writeYaml(const Text& text, CRandom& random);
std::vector<File> writeZefania(const Text& text, CRandom& random);

/// An archive of a source in any other format.
std::vector<File> writeZip(const Text& text, CRandom& random);

/// An archive of these files, some of them compressed.
std::string zipOf(const std::vector<File>& files, CRandom& random);

} // namespace varied_test
