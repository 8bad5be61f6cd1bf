// The static file holds both programs: it is the one that it is called by. Each comes as one object with no other symbol than its
// main, because they share no source and either may name a type as the other does.
#include <cstring>

extern "C" int TlyMain(int argc, char **argv);
extern "C" int TlyReportMain(int argc, char **argv);

int main(int argc, char **argv) {
    const char *name = argc > 0 ? argv[0] : "tly";
    const char *slash = strrchr(name, '/');
    return strcmp(slash ? slash + 1 : name, "tly-report") == 0 ? TlyReportMain(argc, argv) : TlyMain(argc, argv);
}
