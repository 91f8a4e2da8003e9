#pragma once

#include "process.h"

#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

/// Runs `body` repeatedly. Under callgrind, started with --instr-atstart=no, runs it once instead and counts its
/// instructions.
template <typename Body>
void measure(benchmark::State& state, Body&& body)
{
    const bool isCounted = RUNNING_ON_VALGRIND != 0;
    if (isCounted && state.max_iterations == 1) {
        CALLGRIND_START_INSTRUMENTATION;
        body();
        CALLGRIND_STOP_INSTRUMENTATION;
    }
    for (auto _ : state)
        if (!isCounted)
            body();
}

/// Runs a program repeatedly; its processor time is the benchmark's manual time. Counters: "peak_MB", the most memory
/// used, and "instructions", those of one run, if KEDRIN_BENCH_INSTRUCTIONS is in the environment.
void measureProgram(benchmark::State& state, const std::vector<std::string>& command);
