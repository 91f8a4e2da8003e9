#include "process_setup.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace Kedrin::ModTool {

void setUpProcess()
{
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGCHLD, SIG_DFL);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        const int unusable = stream == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", unusable); // gets the lowest free descriptor, which is the stream's
    }
}

} // namespace Kedrin::ModTool
