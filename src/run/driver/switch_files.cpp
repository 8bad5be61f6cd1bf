// Switches that name files: the list of -F, the report of -O, the tree of -r and the user's own files of -u.
#include "report/project/report_head.h"
#include "run/driver/command_line.h"

#include <cerrno>
#include <cstring>
#include <string>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include "config/languages.h"
#include "config/settings.h"
#include "report/frame.h"
#include "run/driver/switches.h"
#include "run/globals.h"
#include "run/mode.h"
#include "run/read_lines.h"
#include "run/same_file.h"

namespace {

// True for a baseline that -wx compares or that a new one is to replace: with "-O old.dat" ahead, the report would be all that is
// left of it.
bool IsBaseline(const char *path, const char *parameter) {
    std::string_view older, newer;
    if (*parameter == 'x' && SplitBaselines(parameter + 1, &older, &newer)) {
        return IsSameFile(path, std::string(older).c_str()) || IsSameFile(path, std::string(newer).c_str());
    }
    const FileForm form = SplitFileForm(parameter);
    return strcasecmp(form.type, "dat") == 0 && IsSameFile(path, std::string(form.name, form.length).c_str());
}

// True when the run will read this file: a file argument or the list of -F, and for a report also a baseline of -w.
bool IsInputOfRun(const char *path, bool for_report, const Globals *G) {
    bool only_files = false; // behind "--"
    for (int i = 1; i < G->argc; ++i) {
        const char *argument = G->argv[i];
        if (only_files || argument[0] != '-' || argument[1] == '\0') {
            if (IsSameFile(path, argument)) {
                return true;
            }
        } else if (strcmp(argument, "--") == 0) {
            only_files = true;
        } else if (const char *letter = LetterWithParameter(argument)) {
            const bool attached = letter[1] != '\0';
            i += attached ? 0 : 1;
            const char *parameter = attached ? letter + 1 : i < G->argc ? G->argv[i] : "";
            if ((*letter == 'F' && IsSameFile(path, parameter)) || (for_report && *letter == 'w' && IsBaseline(path, parameter))) {
                return true;
            }
        }
    }
    return false;
}

bool IsCurrentDirectory(const char *directory) {
    for (const char *name : {".", ".\\", "./", "\\", "/", "*", "*.*"}) {
        if (strcmp(directory, name) == 0) {
            return true;
        }
    }
    return false;
}

void ShowHeads(Globals *G) {
    ShowHeader(G);
    ShowFMCHeader(G);
}

// "File CFG my.cfg": lays that file over the settings read so far.
void TakeUserCfg(const FileForm &form, Globals *G) {
    if (!G->user_cfg_enabled) {
        return;
    }
    if (form.length == 0) {
        ShowHeads(G);
        EndWithError(G, 0, "\n  Error: -w \"File cfg\" file name not parsed\n         Check command line syntax\n");
    }
    PathText name;
    StoreParameter(name, form.name, form.length, 'u', G);
    LineReader probe; // a directory or a FIFO is no settings file
    if (!OpenLines(&probe, name)) {
        ShowHeads(G);
        EndWithError(G, 0, "\n  Error: File name [%s] not found\n         path\\filename required\n", name);
    }
    CloseLines(&probe);
    CopyText(G->cfg_file, name);
    LoadCfg(G);
}

void TakeStyleSheet(const FileForm &form, Globals *G) {
    if (form.length == 0) {
        ShowHeads(G);
        EndWithError(G, 0, "\n  Error: -w \"File xsl\" file name not parsed\n         Check command line syntax\n");
    }
    StoreParameter(G->xsl_file, form.name, form.length, 'u', G);
    G->xsl_file_set = 1;
}

bool IsSourceOrInputOf(const char *path, bool for_report, Globals *G) {
    struct stat found;
    if (stat(path, &found) != 0 || !S_ISREG(found.st_mode)) {
        return false;
    }
    const char *extension = getExtension(path, G);
    return (extension && findUlpi(extension, G) >= 0) || IsInputOfRun(path, for_report, G);
}

} // namespace

bool IsSourceOrInput(const char *path, Globals *G) {
    return IsSourceOrInputOf(path, false, G);
}

void SwitchFileList(const char *parameter, Globals *G) {
    G->recursive_mode = 0;
    StoreParameter(G->file_list_name, parameter, strlen(parameter), 'F', G);
}

void SwitchOutputFile(const char *parameter, Globals *G) {
    StoreParameter(G->output_file_name, parameter, strlen(parameter), 'O', G);
    set_output_file(G->output_file_name, G);
}

void set_output_file(const char *path, Globals *G) {
    if (gTLYOUT != stdout) { // a second -O
        fclose(gTLYOUT);
        gTLYOUT = stdout;
    }
    if (IsSourceOrInputOf(path, true, G)) { // with "-O *.c" the shell hands over "-O a.c b.c"
        EndWithError(G, 1,
                     "\n  Error: The output file of the -O option is a source file\n"
                     "         or an input file that already exists\n"
                     "         Filename: %s\n"
                     "         Use -hs for help text\n",
                     path);
    }
    FILE *stream = fopen(path, "wbe");
    if (!stream) {
        EndWithError(G, 1,
                     "\n  Error: Could not open output file\n"
                     "         Filename: %s\n"
                     "         %s\n\n",
                     path, strerror(errno));
    }
    setvbuf(stream, nullptr, _IOFBF, 1 << 16); // reports of large projects are long
    gTLYOUT = stream;
    printf("\n  TLY using output file: %s\n", path);
}

void SwitchRecursive(const char *parameter, Globals *G) {
    G->file_list_mode = 0;
    ClearText(G->extension_list);
    ClearText(G->top_dir);
    const size_t extensions = strcspn(parameter, " ");
    StoreParameter(G->extension_list, parameter, extensions, 'r', G);
    if (parameter[extensions] == ' ') {
        const char *directory = parameter + extensions + 1;
        StoreParameter(G->top_dir, directory, strcspn(directory, "\n"), 'r', G);
    }
    const bool directory_given = *G->top_dir != '\0';
    LineText here;
    if (IsCurrentDirectory(G->top_dir) && getcwd(here, sizeof here)) {
        CopyText(G->top_dir, here);
    }
    if (!directory_given || (!IsLetter(*G->extension_list) && !IsLetter(*G->top_dir))) {
        EndWithError(G, 1,
                     "\n  Error: In the specified parameter: -r\n"
                     "         For the recursive descent option -r,\n"
                     "         The option parameters must be delimited by quotes.\n"
                     "         Specify the file extensions separated by commas.\n"
                     "         The specified directory must be the last parameter.\n"
                     "\n"
                     "         Windows Example: -r\"h,c,java,cs c:\\my project\"\n"
                     "         UNIX Example: -r\"h,cpp,java,cs /my_project\"\n"
                     "         Use -hs for help text\n");
    }
}

void SwitchUserFile(const char *parameter, Globals *G) {
    if (*parameter != 'f' && *parameter != 'F') {
        ShowHeads(G);
        EndWithError(G, 1, "\n  Error: Invalid or missing parameter for -u option\n         Use -hs for help text\n");
    }
    const FileForm form = SplitFileForm(parameter);
    if (strcasecmp(form.type, "cfg") == 0) {
        TakeUserCfg(form, G);
    } else if (strcasecmp(form.type, "xsl") == 0) {
        TakeStyleSheet(form, G);
    } else {
        ShowHeads(G);
        EndWithError(G, 0,
                     "\n  Error: -u \"File [cfg | xsl] [path\\filename]\"\n"
                     "         Command line syntax is not correct\n");
    }
}
