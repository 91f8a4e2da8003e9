#include "lets_out.h"

#include <cstdio>

namespace ut {

void end_program(const char* operation, const char* message) noexcept
{
    std::fputs(operation, stderr);
    std::fputs(" let out an exception that its contract does not name: ", stderr);
    for (const char* c = message; *c != '\0'; ++c)
        std::fputc(*c == '\n' ? ' ' : *c, stderr); // one line, whatever the message contains
    std::fputc('\n', stderr);
    std::terminate();
}

} // namespace ut
