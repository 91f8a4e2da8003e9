#pragma once

#include <string>

/// One function per reader: opens the file, calls every operation of the reader, and checks what is true for
/// every file whatever its bytes are. Shared by the tests of bad input and the fuzzers.
///
/// The constructor's std::ios_base::failure and the std::out_of_range of the queries are accepted, as callers
/// must expect them. Other exceptions pass through, as does the std::logic_error of a failed check.
namespace test_support {

/// The result of each: the message with which the constructor refused the file; empty if it opened.
std::string walkStructure(const std::string& path, unsigned int booksCount);
std::string walkTitles(const std::string& path);
std::string walkDiff(const std::string& path);
/// Every verse by its number, and all by cursors with blocks of several sizes, compared with plainVerse().
std::string walkText(const std::string& textPath, const std::string& pointPath);
std::string walkWordList(const std::string& path);
/// Both files must have only complete records: a partial one ends the program, as CConc's contract says.
std::string walkConc(const std::string& concPath, const std::string& concPointPath);
void walkInfo(const std::string& path);
void walkNumbersAndLines(const std::string& text);

/// A simple way to read a verse: record `verseNum` of the pointer file is the offset of two length bytes, low
/// first, and the text. The result is "=" and the text, or the message that the reader must throw.
std::string plainVerse(const std::string& textBytes, const std::string& pointBytes, unsigned int verseNum);

/// The bytes of a file; nothing if it cannot be read.
std::string bytesOf(const std::string& path);

} // namespace test_support
