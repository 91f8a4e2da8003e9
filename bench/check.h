#pragma once

#include <cstdio>
#include <cstdlib>

/// A benchmark of a wrong answer is worth nothing: ends the program unless the answer is right.
inline void checkAnswer(bool right, const char* benchmark)
{
    if (right)
        return;
    std::fprintf(stderr, "%s gives a wrong answer\n", benchmark);
    std::exit(1);
}
