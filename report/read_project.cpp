#include "read_project.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "fingerprint.h"
#include "join.h"
#include "paths.h"
#include "read_json.h"
#include "read_xml.h"

namespace {

bool ReadInput(const std::string &input, const std::string &root, Model &m, std::string &error) {
    const bool standard = input == "-";
    std::FILE *in = standard ? stdin : fopen(input.c_str(), "rb");
    if (!in) {
        error = input + ": " + strerror(errno) + ". Name the XML that tly -X -Ta -Tq or tly-report run wrote.";
        return false;
    }
    const std::string name = standard ? "standard input" : input;
    const int first = fgetc(in);
    ungetc(first, in);
    const bool read = first == '{' ? ReadJson(in, name, m, error) : ReadXml(in, name, root, m, error);
    if (!standard) {
        fclose(in);
    }
    return read;
}

// root with a "/" behind it.
std::string Prefix(const std::string &root) {
    std::string prefix = ShownPath((root.starts_with('/') ? "" : CurrentDirectory()) + root, "");
    if (!prefix.empty() && prefix.back() != '/') {
        prefix += '/';
    }
    return prefix;
}

} // namespace

bool ReadFigures(const std::vector<std::string> &inputs, const std::string &root, Model &m, std::string &error) {
    const std::string prefix = Prefix(root);
    for (const std::string &input : inputs) {
        if (!ReadInput(input, prefix, m, error)) {
            return false;
        }
    }
    return FinishModel(m, inputs.size() > 1, error);
}

bool ReadProject(const std::vector<std::string> &inputs, const std::string &root, Model &m, std::string &error) {
    if (!ReadFigures(inputs, root, m, error)) {
        return false;
    }
    TakeFingerprints(m, Prefix(root));
    return true;
}
