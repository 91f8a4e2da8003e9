#pragma once

#include "check_module.h"
#include "module_files.h"
#include "temp_folder.h"

#include <string>
#include <vector>

namespace check_test {

using test_support::ModuleFiles;

/// smallModule() with other verses: CompactText.bin and CompactPoint.bin are made anew, nothing else.
ModuleFiles withVerses(const std::vector<std::string>& utf8Verses);

/// smallModule() with its first verse replaced.
ModuleFiles withFirstVerse(const std::string& utf8Verse);

/// smallModule() with other words and entries: the four files of the word list and the concordance are made anew.
/// Numbers of verses are from 1, as stored.
struct Word
{
    std::string bytes;
    std::vector<unsigned int> verses;
};
ModuleFiles withWords(const std::vector<Word>& words);

/// smallModule() with one file replaced.
ModuleFiles withFile(const std::string& name, const std::string& bytes);

std::string littleEndian(std::size_t value, std::size_t byteCount);

/// What a check says of these files: a line a check that found something, "conc-offset (1): place, place".
std::vector<std::string> findingsOf(const ModuleFiles& files);
std::vector<std::string> lines(const Kedrin::ModTool::CFindings& findings);

} // namespace check_test
