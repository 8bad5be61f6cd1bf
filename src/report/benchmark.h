// The process timer and the benchmark report of -b.
#pragma once

#include <cstdint>
#include <sys/times.h>

struct Globals;

struct ProcessTimer {
    int64_t ticks_per_second;
    int64_t start_ticks, stop_ticks;
    double user_seconds, system_seconds, elapsed_seconds, wait_seconds;
    struct tms start_times, stop_times;
};

enum TimerMode { kTimerStart, kTimerStop, kTimerPrint };

void Timer(ProcessTimer *timer, TimerMode mode, const Globals *G);
// Stops the timer and reports; nothing unless benchmark_mode is set.
void Benchmark(ProcessTimer *timer, Globals *G);
