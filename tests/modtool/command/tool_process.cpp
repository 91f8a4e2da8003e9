#include "tool_process.h"

#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace process_test {

namespace {

std::string wholeText(std::FILE* file)
{
    std::string text;
    std::rewind(file);
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file))
        text.push_back(static_cast<char>(c));
    return text;
}

} // namespace

Command tool(const Command& arguments)
{
    Command command{KEDRIN_MODULE_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

void become(const Command& command)
{
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    ::unsetenv("LANGUAGE");
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::setenv("ASAN_OPTIONS", "detect_leaks=0", 1); // leak detection fails in a traced process
    ::execvp(arguments.front(), arguments.data());
    std::perror(arguments.front());
    constexpr int notFound = 127;
    ::_exit(notFound);
}

ForkedEnd run(const Command& command)
{
    return test_support::runForked([&]() -> int { become(command); });
}

StartedProcess::StartedProcess(const Command& command)
    : m_errors(std::tmpfile(), &std::fclose),
      m_process(m_errors ? ::fork() : -1)
{
    if (m_process < 0)
        throw std::runtime_error("cannot start " + command.front());
    if (m_process == 0) {
        ::dup2(::fileno(m_errors.get()), STDERR_FILENO);
        become(command);
    }
    m_descriptor = static_cast<int>(::syscall(SYS_pidfd_open, m_process, 0));
    if (m_descriptor < 0)
        throw std::runtime_error("cannot watch " + command.front());
}

StartedProcess::~StartedProcess()
{
    if (m_process > 0) {
        kill();
        ::waitpid(m_process, nullptr, 0);
    }
    ::close(m_descriptor);
}

bool StartedProcess::endsWithin(std::chrono::nanoseconds time) const
{
    constexpr std::int64_t second = 1000000000;
    const timespec limit{time.count() / second, time.count() % second};
    pollfd watched{m_descriptor, POLLIN, 0};
    return ::ppoll(&watched, 1, &limit, nullptr) == 1;
}

void StartedProcess::kill() const { ::kill(m_process, SIGKILL); }

ForkedEnd StartedProcess::wait()
{
    int status = 0;
    ::waitpid(m_process, &status, 0);
    m_process = -1;
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, WIFSIGNALED(status) ? WTERMSIG(status) : 0,
            wholeText(m_errors.get())};
}

} // namespace process_test
