#include "forked.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <grp.h>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace test_support {

namespace {

constexpr int bodyThrew = 99;

[[noreturn]] void runChild(const std::function<int()>& body, int errorDescriptor)
{
    const rlimit none = {0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    ::dup2(errorDescriptor, STDERR_FILENO);
    int exitCode = bodyThrew;
    try {
        exitCode = body();
    } catch (const std::exception& ex) {
        std::fprintf(stderr, "thrown: %s\n", ex.what());
    }
    std::fflush(stderr);
    ::_exit(exitCode);
}

std::string wholeText(std::FILE* file)
{
    std::string text;
    std::rewind(file);
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file))
        text.push_back(static_cast<char>(c));
    return text;
}

} // namespace

ForkedEnd runForked(const std::function<int()>& body)
{
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> errors(std::tmpfile(), &std::fclose);
    if (!errors)
        throw std::runtime_error("cannot make a temporary file");
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("cannot fork");
    if (child == 0)
        runChild(body, ::fileno(errors.get()));
    int status = 0;
    ::waitpid(child, &status, 0);

    ForkedEnd end;
    end.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    end.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    end.standardError = wholeText(errors.get());
    return end;
}

void becomeNobody()
{
    constexpr unsigned int nobody = 65534;
    if (::geteuid() != 0)
        return;
    if (::setgroups(0, nullptr) != 0 || ::setgid(nobody) != 0 || ::setuid(nobody) != 0)
        throw std::runtime_error("cannot become nobody");
}

int openDescriptors()
{
    const std::filesystem::directory_iterator entries("/proc/self/fd");
    return static_cast<int>(std::distance(begin(entries), end(entries))) - 1; // of the listing itself
}

} // namespace test_support
