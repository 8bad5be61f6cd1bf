#include <algorithm>
#include <cstring>

#include "formats.h"
#include "json_text.h"
#include "notice_help.h"
#include "severity.h"

namespace {

// From here on numbers are the user's.
constexpr int kFirstOwnRule = 100;

struct Rule {
    int number;
    TextId text; // with the limit in force; 0 for a kind that wasn't raised
};

struct Sarif {
    JsonWriter w;
    const Model &m;
    std::vector<Rule> rules{}; // by number
};

// All of tly's own kinds, raised or not, and the others that were raised.
std::vector<Rule> Rules(const Model &m) {
    std::vector<Rule> rules;
    for (int number = 1; number < kFirstOwnRule; ++number) {
        if (FindNoticeHelp(number)) {
            rules.push_back({number, 0});
        }
    }
    for (const NoticeKind &kind : m.kinds) {
        const auto place = std::ranges::lower_bound(rules, kind.number, {}, &Rule::number);
        if (place != rules.end() && place->number == kind.number) {
            place->text = kind.text;
        } else {
            rules.insert(place, {kind.number, kind.text});
        }
    }
    return rules;
}

const char *Level(int number) {
    return SeverityOf(number) == Severity::kStyle ? "note" : "warning";
}

void Text(JsonWriter &w, const char *name, std::string_view text) {
    BeginObject(w, name);
    Member(w, "text", text);
    EndObject(w);
}

// In a message, braces hold placeholders: those that are meant stand twice.
std::string Message(std::string_view text) {
    std::string message;
    for (const char c : text) {
        message.append(c == '{' || c == '}' ? 2 : 1, c);
    }
    return message;
}

// A path as a reference to the file. What isn't a letter, a digit or a mark that stands for itself in any place is encoded.
std::string Uri(std::string_view path) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string uri = path.starts_with('/') ? "file://" : "";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || (c && strchr("/-._~", c));
        if (plain) {
            uri += c;
        } else {
            uri += {'%', kHex[byte >> 4], kHex[byte & 15]};
        }
    }
    return uri;
}

void Location(Sarif &s, const char *name, uint32_t file, bool index) {
    const std::string_view path = s.m.texts[s.m.files[file].path];
    BeginObject(s.w, name);
    Member(s.w, "uri", Uri(path));
    if (!path.starts_with('/')) {
        Member(s.w, "uriBaseId", "%SRCROOT%");
    }
    if (index) {
        Member(s.w, "index", file);
    }
    EndObject(s.w);
}

void WriteRules(Sarif &s) {
    BeginArray(s.w, "rules");
    for (const Rule &rule : s.rules) {
        const NoticeHelp *help = FindNoticeHelp(rule.number);
        const std::string_view full = help ? help->help : s.m.texts[rule.text];
        const std::string off =
            help ? "\n\nTo have it raised no more, set \"Quality Notice " + std::to_string(rule.number) + " : No\" in tly.cfg."
                 : "\n\nThis rule stands in the file that \"TLY user defined quality notice file\" in tly.cfg names.";
        BeginRecord(s.w);
        Member(s.w, "id", RuleName(rule.number));
        if (help) {
            Member(s.w, "name", help->name);
        }
        Text(s.w, "shortDescription", rule.text ? s.m.texts[rule.text] : full.substr(0, full.find(". ") + 1));
        Text(s.w, "fullDescription", full);
        Text(s.w, "help", std::string(full) + off);
        BeginObject(s.w, "defaultConfiguration");
        Member(s.w, "level", Level(rule.number));
        EndObject(s.w);
        EndRecord(s.w);
    }
    EndArray(s.w);
}

void Notification(JsonWriter &w, const std::string &text) {
    BeginRecord(w);
    Member(w, "level", "warning");
    Text(w, "message", Message(text));
    EndRecord(w);
}

void WriteInvocation(Sarif &s, size_t listed) {
    BeginArray(s.w, "invocations");
    BeginObject(s.w);
    Member(s.w, "commandLine", s.m.texts[s.m.command]);
    Member(s.w, "executionSuccessful", true);
    BeginArray(s.w, "toolExecutionNotifications");
    if (listed < s.m.notices.size()) {
        Notification(s.w, "Of " + std::to_string(s.m.notices.size()) + " notices " + std::to_string(listed) +
                              " are listed, the worst kinds first: more results are refused by services that take SARIF. Switch "
                              "kinds off in tly.cfg, or measure a part of the sources.");
    }
    for (const std::string &remark : s.m.remarks) {
        Notification(s.w, remark);
    }
    EndArray(s.w);
    EndObject(s.w);
    EndArray(s.w);
}

void WriteArtifacts(Sarif &s) {
    static constexpr const char *kSourceLanguages[] = {nullptr, "c", "c", "cplusplus", "cplusplus", "java", "csharp"};
    BeginArray(s.w, "artifacts");
    for (uint32_t i = 0; i < s.m.files.size(); ++i) {
        const FileRow &file = s.m.files[i];
        BeginRecord(s.w);
        Location(s, "location", i, false);
        Member(s.w, "length", file.bytes);
        if (const char *language = kSourceLanguages[static_cast<int>(file.language)]) {
            Member(s.w, "sourceLanguage", language);
        }
        if (file.by_line) {
            BeginObject(s.w, "properties");
            Member(s.w, "fingerprintsByLine", true);
            EndObject(s.w);
        }
        EndRecord(s.w);
    }
    EndArray(s.w);
}

// The function that the result lies in.
void LogicalLocation(Sarif &s, const FunctionRow &function) {
    const std::string_view name = s.m.texts[function.name];
    const std::string_view scope = s.m.texts[function.scope];
    BeginArray(s.w, "logicalLocations");
    BeginObject(s.w);
    Member(s.w, "name", scope.empty() ? name : name.substr(std::min(name.find_first_not_of(".:", scope.size()), name.size())));
    Member(s.w, "fullyQualifiedName", name);
    Member(s.w, "kind", "function");
    EndObject(s.w);
    EndArray(s.w);
}

void WriteResult(Sarif &s, const Notice &notice) {
    const auto rule = std::ranges::lower_bound(s.rules, notice.number, {}, &Rule::number);
    BeginRecord(s.w);
    Member(s.w, "ruleId", RuleName(notice.number));
    Member(s.w, "ruleIndex", static_cast<int64_t>(rule - s.rules.begin()));
    Member(s.w, "level", Level(notice.number));
    Text(s.w, "message", Message(s.m.texts[notice.text]));
    BeginArray(s.w, "locations");
    BeginObject(s.w);
    BeginObject(s.w, "physicalLocation");
    Location(s, "artifactLocation", notice.file, true);
    BeginObject(s.w, "region");
    Member(s.w, "startLine", notice.line);
    EndObject(s.w);
    EndObject(s.w);
    if (notice.function != kNone) {
        LogicalLocation(s, s.m.functions[notice.function]);
    }
    EndObject(s.w);
    EndArray(s.w);
    BeginObject(s.w, "partialFingerprints");
    Member(s.w, kSarifFingerprint, FingerprintText(notice.fingerprint));
    EndObject(s.w);
    EndRecord(s.w);
}

void WriteTool(Sarif &s) {
    BeginObject(s.w, "tool");
    BeginObject(s.w, "driver");
    Member(s.w, "name", "tly");
    Member(s.w, "fullName", "Tallyline " + std::string(s.m.texts[s.m.version]));
    Member(s.w, "version", s.m.texts[s.m.version]);
    WriteRules(s);
    EndObject(s.w);
    EndObject(s.w);
}

void WriteBases(JsonWriter &w) {
    BeginObject(w, "originalUriBaseIds");
    BeginRecord(w, "%SRCROOT%");
    Text(w, "description", "The directory where tly ran.");
    EndRecord(w);
    EndObject(w);
}

void WriteCounts(Sarif &s, size_t listed) {
    BeginRecord(s.w, "properties");
    Member(s.w, kSarifCount, static_cast<int64_t>(s.m.notices.size()));
    Member(s.w, "noticesLeftOut", static_cast<int64_t>(s.m.notices.size() - listed));
    EndRecord(s.w);
}

} // namespace

std::string RuleName(int number) {
    return "TLY" + std::to_string(number);
}

std::string FingerprintText(uint64_t fingerprint) {
    char text[17];
    snprintf(text, sizeof text, "%016lx", static_cast<unsigned long>(fingerprint));
    return text;
}

bool WriteSarif(const Model &m, size_t most, std::FILE *out) {
    Sarif s{{out}, m};
    s.rules = Rules(m);
    std::vector<uint32_t> order = WorstFirst(m);
    order.resize(std::min(order.size(), most));
    BeginObject(s.w);
    Member(s.w, "$schema", "https://json.schemastore.org/sarif-2.1.0.json");
    Member(s.w, "version", "2.1.0");
    BeginArray(s.w, "runs");
    BeginObject(s.w);
    WriteTool(s);
    WriteInvocation(s, order.size());
    WriteBases(s.w);
    WriteCounts(s, order.size());
    WriteArtifacts(s);
    BeginArray(s.w, "results");
    for (const uint32_t notice : order) {
        WriteResult(s, m.notices[notice]);
    }
    EndArray(s.w);
    EndObject(s.w);
    EndArray(s.w);
    EndObject(s.w);
    return Finish(s.w);
}
