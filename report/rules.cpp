#include "rules.h"

#include "output.h"
#include "rule_file.h"
#include "tell.h"
#include "text_lines.h"

namespace {

bool WriteFindings(const RuleCheck &check, std::FILE *out) {
    LineWriter w{out};
    for (const RuleFinding &finding : check.findings) {
        AppendShown(w.text, finding.file);
        w.text += ":" + std::to_string(finding.line) + ": ";
        AppendShown(w.text, finding.text);
        EndLine(w);
    }
    const size_t count = check.findings.size() + check.left_out;
    w.text += Counted(check.rules, "rule") + ", " + (count > 0 ? Counted(count, "finding") : "nothing to tell");
    w.text += check.left_out > 0 ? ", of which " + std::to_string(check.findings.size()) + " are shown" : "";
    EndLine(w);
    return Finish(w);
}

} // namespace

int RunRules(const Options &options) {
    RuleCheck check;
    std::string error;
    if (!CheckRules(options.inputs, check, error)) {
        Tell(error);
        return kBad;
    }
    if (check.untried) {
        fprintf(stderr, "tly-report: there was no time to try all patterns on long lines.\n");
    }
    const int written = WriteOutput(options.output, [&](std::FILE *out) { return WriteFindings(check, out); });
    return written == kFine && !check.findings.empty() ? kExceeded : written;
}
