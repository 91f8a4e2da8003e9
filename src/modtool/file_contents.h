#pragma once

#include "module_data.h"

#include <array>
#include <string>
#include <string_view>

namespace Kedrin::ModTool {

/// The ten files of a module, in the order in which they are written.
inline constexpr std::array<std::string_view, 10> moduleFileNames = {
    "BibleTitles.txt", "BibleStructure.csv", "_Diff_.txt", "CompactText.bin", "CompactPoint.bin",
    "WordList.txt",    "WordPoint.bin",      "Conc.bin",   "ConcP.bin",       "_Info_.txt"};

/// Two files, the second of which says where the records of the first begin.
struct FileWithPoints
{
    std::string content;
    std::string points;
};

// Each of these gives the content of the files that doc/formats describes on a page of its own. Text files are
// Windows-1251 with lines ended by LF; the word list's end with CR LF, because its reader on disk looks for that.

std::string titlesFile(const ModuleData& module);          ///< BibleTitles.txt
std::string structureFile(const ModuleData& module);       ///< BibleStructure.csv, a line a book
std::string diffFile(const ModuleData& module);            ///< _Diff_.txt, a line a record
FileWithPoints textFiles(const ModuleData& module);        ///< CompactText.bin, CompactPoint.bin
FileWithPoints wordListFiles(const ModuleData& module);    ///< WordList.txt, WordPoint.bin
FileWithPoints concordanceFiles(const ModuleData& module); ///< Conc.bin, ConcP.bin
std::string infoFile(const ModuleData& module);            ///< _Info_.txt

/// Append a number in two or four bytes, the lowest first.
void appendUnsigned16(std::string& out, unsigned int value);
void appendUnsigned32(std::string& out, std::size_t value);

} // namespace Kedrin::ModTool
