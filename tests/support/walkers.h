#pragma once

#include <string>

/// One function a reader: opens the file, asks the reader for everything it offers, and checks what holds for
/// every file whatever its bytes are. Shared by the tests of bad input and by the fuzzers.
///
/// The constructor's std::ios_base::failure and the std::out_of_range of the queries are taken for answers, as
/// their callers must expect them. Anything else comes out: a foreign exception, or the std::logic_error of a
/// check that failed.
namespace test_support {

/// The result of each: the message the constructor refused the file with; empty when it opened.
std::string walkStructure(const std::string& path, unsigned int booksCount);
std::string walkTitles(const std::string& path);
std::string walkDiff(const std::string& path);
/// Every verse by its number, and all in runs of pieces of several sizes, against plainVerse().
std::string walkText(const std::string& textPath, const std::string& pointPath);
std::string walkWordList(const std::string& path);
/// Both files must hold whole records only: a partial one ends the program, as CConc's contract says.
std::string walkConc(const std::string& concPath, const std::string& concPointPath);
void walkInfo(const std::string& path);
void walkNumbersAndLines(const std::string& text);

/// The plain way to a verse: record `verseNum` of the pointer file names the place of two length bytes, low first,
/// and the text. The result begins with "=" before the text, or is the message that the reader must throw.
std::string plainVerse(const std::string& textBytes, const std::string& pointBytes, unsigned int verseNum);

/// The bytes of a file; nothing for one that cannot be read.
std::string bytesOf(const std::string& path);

} // namespace test_support
