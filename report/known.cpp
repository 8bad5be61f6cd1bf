// All three forms are read by one rule: what is a fingerprint is told by its name and how deep it stands.
#include "known.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <nlohmann/json.hpp>

#include "formats.h"
#include "text_lines.h"

namespace {

using Json = nlohmann::json;

enum class Form : uint8_t { kNone, kJson, kSarif, kGitlab };

// The parser calls back for every value.
struct Reader {
    Known &known;
    std::string error{};
    Form form = Form::kNone;
    int depth = 0;
    std::string name{};    // of the value that comes next
    std::string section{}; // the member of the document that it stands in
    int64_t counted = 0;   // notices, by what the file says
    bool has_count = false;

    bool null() { return true; }
    bool boolean(bool value);
    bool number_integer(int64_t) { return true; }
    bool number_unsigned(uint64_t value);
    bool number_float(double, const std::string &) { return true; }
    bool string(std::string &text);
    bool binary(Json::binary_t &) { return true; }
    bool start_object(size_t);
    bool end_object();
    bool start_array(size_t);
    bool end_array();
    bool key(std::string &text);
    bool parse_error(size_t position, const std::string &, const Json::exception &);
};

bool Fail(Reader &r, const std::string &what) {
    r.error = r.error.empty() ? what : r.error;
    return false;
}

bool Reader::boolean(bool value) {
    known.by_line = known.by_line || (value && (name == "by_line" || name == "fingerprintsByLine"));
    return true;
}

bool Reader::number_unsigned(uint64_t value) {
    if (depth == 1 && name == "version") {
        form = value == 1 ? Form::kJson : Form::kNone;
        return form == Form::kJson || Fail(*this, "another tly-report made it. Make it again with: tly-report json.");
    }
    if ((form == Form::kJson && section == "totals" && depth == 3 && name == "count") ||
        (form == Form::kSarif && depth == 4 && name == kSarifCount)) {
        // The last of the totals is that of notices.
        counted = static_cast<int64_t>(std::min<uint64_t>(value, INT64_MAX));
        has_count = true;
    }
    return true;
}

bool Reader::string(std::string &text) {
    if (depth == 1 && name == "version") {
        form = text == "2.1.0" ? Form::kSarif : Form::kNone;
        return true;
    }
    const bool listed = (form == Form::kJson && section == "notices" && depth == 3 && name == "fingerprint") ||
                        (form == Form::kSarif && section == "runs" && name == kSarifFingerprint) ||
                        (form == Form::kGitlab && depth == 2 && name == "fingerprint");
    if (!listed) {
        return true;
    }
    uint64_t fingerprint = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), fingerprint, 16);
    if (failure != std::errc() || end != text.data() + text.size() || text.size() != 16) {
        return Fail(*this, "a fingerprint in it isn't one of tly-report's.");
    }
    known.fingerprints.push_back(fingerprint);
    return true;
}

bool Reader::start_object(size_t) {
    ++depth;
    name.clear();
    return true;
}

bool Reader::end_object() {
    --depth;
    return true;
}

bool Reader::start_array(size_t) {
    if (++depth == 1) {
        form = Form::kGitlab;
    }
    name.clear();
    return true;
}

bool Reader::end_array() {
    --depth;
    return true;
}

bool Reader::key(std::string &text) {
    name = text;
    if (depth == 1) {
        section = text;
    }
    return true;
}

bool Reader::parse_error(size_t, const std::string &, const Json::exception &) {
    return Fail(*this, "it is no whole JSON. Name what tly-report json or tly-report sarif wrote.");
}

bool Check(Reader &r) {
    if (!r.error.empty()) {
        return false;
    }
    if (r.form == Form::kNone || (r.form != Form::kGitlab && !r.has_count)) {
        return Fail(r, "it isn't the JSON, SARIF or GitLab file of tly-report.");
    }
    const auto listed = static_cast<int64_t>(r.known.fingerprints.size());
    if (r.form != Form::kGitlab && listed != r.counted) {
        return Fail(r, "it lists " + std::to_string(listed) + " of " + std::to_string(r.counted) +
                           " notices: the others would look new. Compare with what tly-report json writes, which lists all.");
    }
    return true;
}

} // namespace

bool ReadKnown(std::FILE *in, const std::string &name, Known &known, std::string &error) {
    const int first = fgetc(in);
    ungetc(first, in);
    Reader r{known};
    if (first == '<') {
        Fail(r,
             "an XML has no fingerprints, and its sources may have changed since. Make a JSON while they stand: tly-report json.");
    } else if (first != EOF) {
        Json::sax_parse(in, &r);
    }
    if (ferror(in)) {
        r.error = std::string("it can't be read: ") + strerror(errno) + ".";
    }
    if (!Check(r)) {
        error = name + ": " + r.error;
        return false;
    }
    std::ranges::sort(known.fingerprints);
    return true;
}

Known KnownOf(const Model &m) {
    Known known;
    for (const Notice &notice : m.notices) {
        known.fingerprints.push_back(notice.fingerprint);
    }
    std::ranges::sort(known.fingerprints);
    known.by_line = std::ranges::any_of(m.files, &FileRow::by_line);
    return known;
}

Fresh FindFresh(const Model &m, const Known &known) {
    Fresh fresh;
    for (uint32_t i = 0; i < m.notices.size(); ++i) {
        if (!std::ranges::binary_search(known.fingerprints, m.notices[i].fingerprint)) {
            fresh.notices.push_back(i);
        }
    }
    fresh.gone = known.fingerprints.size() - std::min(known.fingerprints.size(), m.notices.size() - fresh.notices.size());
    return fresh;
}

bool WriteFresh(const Model &m, const Fresh &fresh, std::FILE *out) {
    LineWriter w{out};
    for (const uint32_t notice : fresh.notices) {
        AppendNotice(w.text, m, m.notices[notice]);
        EndLine(w);
    }
    w.text += Counted(fresh.notices.size(), "new notice") + ", " + std::to_string(fresh.gone) + " gone, " +
              std::to_string(m.notices.size()) + " in all";
    EndLine(w);
    return Finish(w);
}
