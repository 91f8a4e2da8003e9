#pragma once

#include "progress.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace Kedrin::ModTool {

/// What a repository may take of time and space.
struct TransferLimits
{
    std::chrono::milliseconds stall = std::chrono::seconds(30); ///< without a byte
    std::chrono::milliseconds total = std::chrono::hours(1);    ///< for one file
    std::uint64_t byteCount = 64 << 20;                         ///< of one file
};

/// Copies a file of a repository into a folder of ours. Over the network the SWORD library transfers it, in a process of
/// its own, which can be stopped: the library has no way to end a transfer that takes too long or sends too much.
/// @param address   of the repository
/// @param name      path of the file in it; "/" between names, none of them "." or ".."
/// @param fileName  where it is written; nothing is there
/// @returns whether there is such a file. Nothing answers: the same as if there is none.
/// @throws CBuildError  "%s: %s", the file's address and what was wrong: sent too much, too slow, broken off; or that
///                      program's file and why it cannot be executed
bool transferFile(const std::string& address, const std::string& name, const std::string& fileName,
                  const TransferLimits& limits, IProgress& progress);

} // namespace Kedrin::ModTool
