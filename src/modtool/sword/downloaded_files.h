#pragma once

#include "repository_catalogue.h"

#include <string>
#include <vector>

namespace Kedrin::ModTool {

/// The files of one testament, by name.
struct TestamentFiles
{
    std::string index;  ///< records of one length, for each entry or for each compressed block
    std::string places; ///< where in their blocks entries stand; "" for a text that is not compressed
    std::string text;
    std::size_t entriesCount = 0; ///< that the versification gives the testament, introductions among them
};

/// How a text is stored, by its description.
struct TextStorage
{
    std::vector<TestamentFiles> testaments;
    bool isZipped = false; ///< with zlib; otherwise with another method, or not at all
    bool isWide = false;   ///< lengths have four bytes, not two
};

/// @throws CBuildError  "%s is not a Bible that can be read": it is of another kind, locked, or its name, folder or
///                      compression is none that may be taken
TextStorage storageOf(const SwordDescription& description);

/// Checks that the files of a testament are whole and refer to nothing outside themselves: the SWORD library trusts them.
/// @throws CBuildError  "%s: is damaged"
void checkFiles(const std::string& folder, const TestamentFiles& files, const TextStorage& storage);

} // namespace Kedrin::ModTool
