#include "transfer_program.h"

#include "errors.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>
#include <filesystem>

namespace Kedrin::ModTool {

namespace {

namespace fs = std::filesystem;

fs::path besideThisProgram(const char* name)
{
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored).replace_filename(name);
}

} // namespace

CTransferProgram::CTransferProgram(const std::string& url, const std::string& fileName,
                                   const TransferLimits& limits)
{
    const std::string program = besideThisProgram(transferProgramName);
    std::array<std::string, 6> words = {program,
                                        url,
                                        fileName,
                                        std::to_string(limits.byteCount),
                                        std::to_string(limits.total.count()),
                                        std::to_string(::getpid())};
    std::array<char*, words.size() + 1> arguments{};
    for (std::size_t i = 0; i < words.size(); ++i)
        arguments[i] = words[i].data();
    // The process has threads. A copy of it that goes on without them would wait for ever for a lock that one of them
    // held, so nothing runs in the copy but the other program.
    const int error = ::posix_spawn(&m_pid, program.c_str(), nullptr, nullptr, arguments.data(), environ);
    if (error != 0)
        throw CBuildError(program + ": " + std::strerror(error));
}

CTransferProgram::~CTransferProgram()
{
    if (m_hasEnded)
        return;
    ::kill(m_pid, SIGKILL);
    ::waitpid(m_pid, nullptr, 0);
}

bool CTransferProgram::hasEnded()
{
    if (!m_hasEnded)
        m_hasEnded = ::waitpid(m_pid, &m_status, WNOHANG) != 0;
    return m_hasEnded;
}

bool CTransferProgram::hasSucceeded() const { return WIFEXITED(m_status) && WEXITSTATUS(m_status) == 0; }

} // namespace Kedrin::ModTool
