#pragma once

#include <random>
#include <vector>

namespace test_support {

/// A sequence of numbers that a seed determines on every platform (unlike the distributions of <random>).
class Random
{
public:
    explicit Random(unsigned int seed) : m_numbers(seed) {}

    /// 0 .. `bound` - 1; `bound` is not 0.
    unsigned int below(std::size_t bound) { return static_cast<unsigned int>(m_numbers() % bound); }

    /// True in `times` of 100 calls.
    bool percent(unsigned int times) { return below(100) < times; }

    template <typename T>
    const T& oneOf(const std::vector<T>& choices)
    {
        return choices[below(choices.size())];
    }

private:
    std::mt19937 m_numbers;
};

} // namespace test_support
