#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the program unless the result is correct: a benchmark of a wrong result is worthless.
inline void checkAnswer(bool right, const char* benchmark)
{
    if (right)
        return;
    std::fprintf(stderr, "%s gives a wrong answer\n", benchmark);
    std::exit(1);
}
