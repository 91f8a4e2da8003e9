#pragma once

#include "repository_transfer.h"

#include <string>

#include <sys/types.h>

namespace Kedrin::ModTool {

/// The program that transfers one file with the SWORD library. It lies beside the programs that execute it.
///
/// kedrin-sword-transfer URL FILE BYTES MILLISECONDS PROCESS: it writes the file, of which no more than one byte above
/// BYTES, within this time, and ends with 0 if it has the whole of it, else with 1. It ends with PROCESS, its parent. The
/// numbers are not checked: only CTransferProgram executes it.
constexpr const char* transferProgramName = "kedrin-sword-transfer";

/// That program, running. It is stopped with this object.
class CTransferProgram
{
public:
    /// @throws CBuildError  "%s: %s", the program's file and why it cannot be executed
    CTransferProgram(const std::string& url, const std::string& fileName, const TransferLimits& limits);
    ~CTransferProgram();
    CTransferProgram(const CTransferProgram&) = delete;
    CTransferProgram& operator=(const CTransferProgram&) = delete;

    bool hasEnded();

    /// Meaningful once it has ended.
    bool hasSucceeded() const;

private:
    pid_t m_pid = 0;
    int m_status = -1;
    bool m_hasEnded = false;
};

} // namespace Kedrin::ModTool
