#pragma once

#include "module_data.h"

#include <string>

namespace Kedrin::ModTool {

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

} // namespace Kedrin::ModTool
