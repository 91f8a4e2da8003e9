#pragma once

#include "module_data.h"

#include <string>

namespace Kedrin::ModTool {

/// A file and the file of its record offsets.
struct FileWithPoints
{
    std::string content;
    std::string points;
};

// Contents of the module files (doc/formats has a page for each). Text files are Windows-1251 with lines
// ended by LF, but those of the word list end with CR LF, which its reader requires.

std::string titlesFile(const ModuleData& module);          ///< BibleTitles.txt
std::string structureFile(const ModuleData& module);       ///< BibleStructure.csv, one line per book
std::string diffFile(const ModuleData& module);            ///< _Diff_.txt, one line per record
FileWithPoints textFiles(const ModuleData& module);        ///< CompactText.bin, CompactPoint.bin
FileWithPoints wordListFiles(const ModuleData& module);    ///< WordList.txt, WordPoint.bin
FileWithPoints concordanceFiles(const ModuleData& module); ///< Conc.bin, ConcP.bin
std::string infoFile(const ModuleData& module);            ///< _Info_.txt

} // namespace Kedrin::ModTool
