#include "query_arguments.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <iostream>

namespace Kedrin::ModTool {

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

unsigned int terminalWidth(const std::ostream& out, unsigned int otherwise)
{
    winsize size{};
    if (out.rdbuf() != std::cout.rdbuf() || ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 ||
        size.ws_col == 0)
        return otherwise;
    return size.ws_col;
}

} // namespace Kedrin::ModTool
