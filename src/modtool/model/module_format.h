#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// The names and limits of a module's files (doc/formats/module-folder.md), and the limits of what the tool reads.
namespace Kedrin::ModTool {

// The ten files of a module.
inline constexpr const char* titlesFileName = "BibleTitles.txt";
inline constexpr const char* structureFileName = "BibleStructure.csv";
inline constexpr const char* diffFileName = "_Diff_.txt";
inline constexpr const char* textFileName = "CompactText.bin";
inline constexpr const char* textPointsFileName = "CompactPoint.bin";
inline constexpr const char* wordListFileName = "WordList.txt";
inline constexpr const char* wordPointsFileName = "WordPoint.bin";
inline constexpr const char* concordanceFileName = "Conc.bin";
inline constexpr const char* concordancePointsFileName = "ConcP.bin";
inline constexpr const char* infoFileName = "_Info_.txt";

/// All of them, in the order in which they are written.
inline constexpr std::array<const char*, 10> moduleFileNames = {
    titlesFileName,     structureFileName,   diffFileName,
    textFileName,       textPointsFileName,  wordListFileName,
    wordPointsFileName, concordanceFileName, concordancePointsFileName,
    infoFileName};

/// In the modules directory, beside the modules.
inline constexpr const char* globalStructureFileName = "BibleStructure.txt";

// The sizes of the numbers in them.
inline constexpr std::size_t verseLengthBytes = 2;       ///< before each verse of CompactText.bin
inline constexpr std::size_t concordanceNumberBytes = 2; ///< each number of Conc.bin
inline constexpr std::size_t pointBytes = 4; ///< each record of CompactPoint.bin, WordPoint.bin and ConcP.bin

// Limits of the formats.
inline constexpr std::size_t maxModuleVerses = 65534; ///< verse numbers have 16 bits, and one is kept free
inline constexpr std::uint32_t maxNumberedVerses = 65535; ///< that a concordance can name
inline constexpr std::size_t maxVerseBytes = 65535;       ///< as stored
inline constexpr std::size_t maxLineBytes = 255;          ///< of titles and copyright

// Limits on what a check reads of one module; a build makes no module beyond them.
inline constexpr std::uint64_t maxCheckedFileBytes = 64u << 20;
inline constexpr std::uint64_t maxCheckedTextBytes = 16u << 20; ///< all verses together
inline constexpr std::uint64_t maxCheckedWords = 1u << 20;
inline constexpr std::uint64_t maxCheckedEntries = 32u << 20; ///< verse numbers in a concordance

// Limits on a source; they bound a build's memory for hostile input.
inline constexpr std::uint64_t maxSourceBytes = 64u << 20;
inline constexpr std::size_t maxSourceBooks = 1000;
inline constexpr unsigned int maxSourceNumber = 65534; ///< of chapters and verses, which count from 1

} // namespace Kedrin::ModTool
