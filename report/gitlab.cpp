#include "formats.h"
#include "json_text.h"
#include "severity.h"

bool WriteGitlab(const Model &m, std::FILE *out) {
    static constexpr const char *kSeverities[] = {"major", "minor", "info"};
    JsonWriter w{out};
    BeginArray(w, nullptr);
    for (const Notice &notice : m.notices) {
        BeginRecord(w);
        Member(w, "description", m.texts[notice.text]);
        Member(w, "check_name", RuleName(notice.number));
        Member(w, "fingerprint", FingerprintText(notice.fingerprint));
        Member(w, "severity", kSeverities[static_cast<int>(SeverityOf(notice.number))]);
        BeginObject(w, "location");
        Member(w, "path", m.texts[m.files[notice.file].path]);
        BeginObject(w, "lines");
        Member(w, "begin", notice.line);
        EndObject(w);
        EndObject(w);
        EndRecord(w);
    }
    EndArray(w);
    return Finish(w);
}
