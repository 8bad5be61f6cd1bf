#include "scratch.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

#include "options.h"
#include "tell.h"

namespace {

constexpr int kStops[] = {SIGINT, SIGTERM, SIGHUP};

volatile sig_atomic_t stopped; // the signal that asks this program to end
volatile sig_atomic_t worker;  // the process, and its group

void OnStop(int signal) {
    stopped = signal;
    kill(-worker, SIGTERM);
}

void Handle(void (*handler)(int)) {
    for (const int signal : kStops) {
        struct sigaction action {};
        if (sigaction(signal, nullptr, &action) == 0 && action.sa_handler != SIG_IGN) { // as nohup has it
            action.sa_handler = handler;
            sigaction(signal, &action, nullptr);
        }
    }
}

// A group of its own, so that all that the work starts can be ended.
[[noreturn]] void Work(const std::string &place, const std::function<int(const std::string &)> &work, const sigset_t &before) {
    setpgid(0, 0);
    setenv("TMPDIR", place.c_str(), 1);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    const int status = work(place + "/");
    fflush(nullptr);
    _exit(status);
}

int Wait(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    kill(-process, SIGKILL); // what it started and didn't wait for
    return WIFEXITED(status) ? WEXITSTATUS(status)
           : stopped         ? kBad
                             : Refuse("the work was ended by signal " + std::to_string(WTERMSIG(status)) + ".");
}

// With the place's true name: programs that look upwards from it see that.
std::string MakePlace() {
    const char *parent = getenv("TMPDIR");
    std::string place = std::string(parent && *parent ? parent : "/tmp") + "/tly-report.XXXXXX";
    if (!mkdtemp(place.data())) {
        Tell(place + " can't be made: " + strerror(errno));
        return "";
    }
    char name[PATH_MAX];
    return realpath(place.c_str(), name) ? name : place;
}

} // namespace

int InScratch(const std::function<int(const std::string &place)> &work) {
    sigset_t stops;
    sigset_t before;
    sigemptyset(&stops);
    for (const int signal : kStops) {
        sigaddset(&stops, signal);
    }
    sigprocmask(SIG_BLOCK, &stops, &before); // from the directory on, until there is something to end
    const std::string place = MakePlace();
    pid_t process = -1;
    int result = kBad;
    if (!place.empty()) {
        fflush(nullptr);
        process = fork();
        if (process == 0) {
            Work(place, work, before);
        }
    }
    if (process > 0) {
        setpgid(process, process);
        worker = process;
        Handle(OnStop);
    }
    sigprocmask(SIG_SETMASK, &before, nullptr);
    if (process > 0) {
        result = Wait(process);
    } else if (!place.empty()) {
        result = Refuse(std::string("no process can be started: ") + strerror(errno));
    }
    std::error_code ignored;
    std::filesystem::remove_all(place, ignored);
    if (stopped) {
        Handle(SIG_DFL);
        raise(stopped);
    }
    return result;
}
