// The output mode and the printing verbs. No report looks at the mode flags itself.
//
// All output goes to gTLYOUT. A format's argument of type Shown is text from outside (a file name, a title, an argument, a source
// text): the verbs encode it for the mode, so a report never does.
#pragma once

#include <cstdio>
#include <sys/stat.h>

struct Globals;

extern FILE *gTLYOUT; // the report stream: stdout, or the file of -O
extern FILE *gTLYIN;  // stdin

enum class Mode { kText, kHtml, kCsv, kXml };

// The mode of a report. Two modes may be asked for at once: HTML wins over CSV, CSV over XML.
Mode OutputMode(const Globals *G);
// Text and HTML have pages; CSV and XML hold data.
constexpr bool IsPage(Mode mode) {
    return mode == Mode::kText || mode == Mode::kHtml;
}
// The mode of help and lists of settings: prose in every mode but HTML, without fields and elements.
Mode ProseMode(const Globals *G);
// The mode of lines that stand as plain text in a CSV report too, with their commas: heads of notices, source texts.
Mode FreeTextMode(const Globals *G);

// Writes one literal to gTLYOUT as it stands: the caller has encoded what needs it.
[[gnu::format(printf, 1, 2)]] void Put(const char *fmt, ...);

// A message to the user, inside the report, encoded for the mode. Before the document has begun it waits for it.
[[gnu::format(printf, 2, 3)]] void Message(Globals *G, const char *fmt, ...);
// Writes the messages that waited. The frame calls it once, where the document can hold them.
void FlushEarlyMessages(Globals *G);
// "*** Debug: ..." lines: as Message.

// Ends the process: writes waiting messages, closes an HTML document, makes sure that the report was written whole, frees G.
// A report that couldn't be written gives a message on stderr and a status that isn't 0. Null G: just the exit.
[[noreturn]] void EndProcess(Globals *G, int status);
// True for the file that the report is written to, whatever its path is called.
bool IsReport(const char *path, const Globals *G);
// The status of that file. False, with zeros, when the report goes elsewhere.
bool StatReport(struct stat *report, const Globals *G);
// Flushes gTLYOUT. Returns status, or 1 with a message on stderr when the report couldn't be written whole and status is 0.
int FinishOutput(int status);
