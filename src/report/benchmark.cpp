// The process timer, and what -b makes of it: seconds, and lines and characters per second.
#include "report/benchmark.h"

#include <algorithm>
#include <climits>
#include <unistd.h>

#include "report/forms.h"
#include "report/frame.h"
#include "run/globals.h"

// User, system, wait and elapsed seconds, and the elapsed time once more in days, hours, minutes and seconds.
constexpr Forms<double, double, double, double, const char *> kTimes{
    .text = "  Process Timer\n"
            "  -------------------------------\n"
            "  User CPU Time  : %12.3f Sec\n"
            "  System CPU Time: %12.3f Sec\n"
            "  Wait Time      : %12.3f Sec\n"
            "  -------------------------------\n"
            "  Elapsed Time   : %12.3f Sec\n"
            "                 : %12s Day:Hr:Min:Sec\n",
    .html = "  <b>Process Timer</b>\n"
            "  -------------------------------\n"
            "  <b>User CPU Time</b>  : %12.3f Sec\n"
            "  <b>System CPU Time</b>: %12.3f Sec\n"
            "  <b>Wait Time</b>      : %12.3f Sec\n"
            "  -------------------------------\n"
            "  <b>Elapsed Time</b>   : %12.3f Sec\n"
            "                 : %12s Day:Hr:Min:Sec\n",
    .csv = "Process Timer\n"
           "User CPU Time,%12.3f Sec\n"
           "System CPU Time,%12.3f Sec\n"
           "Wait Time,%12.3f Sec\n"
           "Elapsed Time,%12.3f Sec\n"
           ",%12s,Day:Hr:Min:Sec\n",
    .xml = "<benchmark_timer>\n"
           "<User_CPU_Time>\n<value>%12.3f</value>\n<units>seconds</units>\n</User_CPU_Time>\n"
           "<System_CPU_Time>\n<value>%12.3f</value>\n<units>seconds</units>\n</System_CPU_Time>\n"
           "<Wait_Time>\n<value>%12.3f</value>\n<units>seconds</units>\n</Wait_Time>\n"
           "<Elapsed_Time>\n<value>%12.3f</value>\n<units>seconds</units>\n"
           "<value>%12s</value>\n<units>Day:Hr:Min:Sec</units>\n</Elapsed_Time>\n"
           "</benchmark_timer>\n"};

static void StartTimer(ProcessTimer *timer) {
    *timer = {};
    timer->ticks_per_second = std::max(sysconf(_SC_CLK_TCK), 1L);
    timer->start_ticks = times(&timer->start_times);
}

static void StopTimer(ProcessTimer *timer) {
    timer->stop_ticks = times(&timer->stop_times);
    const double rate = static_cast<double>(timer->ticks_per_second);
    const auto seconds = [rate](int64_t from, int64_t to) { return static_cast<double>(to - from) / rate; };
    timer->elapsed_seconds =
        std::max(seconds(timer->start_ticks, timer->stop_ticks), 0.001); // shorter than a tick, but not nothing
    timer->user_seconds = seconds(timer->start_times.tms_utime, timer->stop_times.tms_utime);
    timer->system_seconds = seconds(timer->start_times.tms_stime, timer->stop_times.tms_stime);
    timer->wait_seconds = std::max(timer->elapsed_seconds - timer->user_seconds - timer->system_seconds, 0.0);
}

static void PrintTimer(const ProcessTimer *timer, const Globals *G) {
    const long whole = static_cast<long>(timer->elapsed_seconds);
    char clock[64];
    FormatText(clock, "%ld:%02ld:%02ld:%02ld", whole / 86400, whole / 3600 % 24, whole / 60 % 60, whole % 60);
    Print(G, kTimes, timer->user_seconds, timer->system_seconds, timer->wait_seconds, timer->elapsed_seconds, clock);
}

void Timer(ProcessTimer *timer, TimerMode mode, const Globals *G) {
    switch (mode) {
    case kTimerStart: StartTimer(timer); break;
    case kTimerStop: StopTimer(timer); break;
    case kTimerPrint: PrintTimer(timer, G); break;
    }
}

static void ShowBenchmarkHead(const Globals *G) {
    const Mode mode = OutputMode(G);
    UnderscoreRule();
    if (mode != Mode::kText && mode != Mode::kHtml) {
        return;
    }
    CenteredTitle("~~ Performance Benchmark ~~", G);
    Put("\n"
        "  A process benchmark has been determined for this metrics analysis.\n"
        "  The elapsed time for processing is effected by the I/O response of\n"
        "  standard out or the redirection device.  The fastest TLY benchmarks\n"
        "  result from redirecting the output to a file on a local file system.\n"
        "  The benchmark is intended for comparative purposes and is not designed\n"
        "  to yield a definitive result.\n\n");
}

constexpr Forms<double, double> kRates{.text = "\n  Performance Benchmark: %.0f Physical Lines Processed/s\n"
                                               "                       : %.0f Characters Parsed/s\n\n",
                                       .html = "\n  Performance Benchmark: %.0f Physical Lines Processed/s\n"
                                               "                       : %.0f Characters Parsed/s\n\n",
                                       .csv = "\nPerformance Benchmark\n"
                                              "Physical Lines Processed/s,%.0f\n"
                                              "Characters Processed/s,%.0f\n\n",
                                       .xml = "<Performance_Benchmark>\n"
                                              "<Physcial_Lines_Processed_per_Second>%.0f</Physcial_Lines_Processed_per_Second>\n"
                                              "<Characters_Processed_per_Second>%.0f</Characters_Processed_per_Second>\n"
                                              "</Performance_Benchmark>\n"};

void Benchmark(ProcessTimer *timer, Globals *G) {
    if (!G->benchmark_mode) {
        return;
    }
    Timer(timer, kTimerStop, G);
    EndHeading(G);
    ShowBenchmarkHead(G);
    Timer(timer, kTimerPrint, G);
    if (G->total.file_line_no > 0) {
        Print(G, kRates, G->total.file_line_no / timer->elapsed_seconds, G->total.file_chars / timer->elapsed_seconds);
    }
}
