#include "process.h"

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

std::string readAll(int descriptor)
{
    std::string text;
    char buffer[4096];
    for (ssize_t got = 0; (got = ::read(descriptor, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(got));
    return text;
}

double secondsOf(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

} // namespace

ProcessEnd runProcess(const std::vector<std::string>& command)
{
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);

    int output[2];
    if (::pipe(output) != 0)
        return {};
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_addclose(&actions, output[0]);
    ::posix_spawn_file_actions_addclose(&actions, output[1]);
    pid_t child = 0;
    const int failed = ::posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::close(output[1]);
    ProcessEnd end;
    if (failed == 0) {
        end.output = readAll(output[0]);
        rusage usage = {};
        int status = 0;
        ::wait4(child, &status, 0, &usage);
        end.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        end.peakBytes = 1024.0 * static_cast<double>(usage.ru_maxrss);
        end.cpuSeconds = secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
    }
    ::close(output[0]);
    return end;
}
