// The project in the forms that services and people take. Each writer takes a Model as ReadProject leaves it, and returns false
// with errno if the stream refused anything. docs/report.md tells what a reader finds in each.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

#include "model.h"

// More results than this are refused by services that take SARIF.
inline constexpr size_t kMostResults = 25000;
// The name of a notice's fingerprint in SARIF, and of the number of notices that there are, listed or not.
inline constexpr const char *kSarifFingerprint = "tlyNotice/v1";
inline constexpr const char *kSarifCount = "noticeCount";

// SARIF 2.1.0. Results come worst kinds first; at most `most` are listed, and a notification tells when there are more.
bool WriteSarif(const Model &m, size_t most, std::FILE *out);

// A GitLab report on code quality: a JSON array.
bool WriteGitlab(const Model &m, std::FILE *out);

// Checkstyle's XML, which Jenkins and others read.
bool WriteCheckstyle(const Model &m, std::FILE *out);

// Annotations of a GitHub workflow, one command per line, worst kinds first: GitHub shows the first ones only.
bool WriteGithub(const Model &m, std::FILE *out);

// What a CSV holds.
enum class Table : uint8_t { kFiles, kFunctions, kClasses, kNotices, kLanguages, kKinds };
inline constexpr const char *kTableNames[] = {"files", "functions", "classes", "notices", "languages", "kinds"};

// One table by RFC 4180: a head, lines that end in CR LF, fields that need it in quotes. What tly doesn't tell is an empty field.
bool WriteCsv(const Model &m, Table table, std::FILE *out);

// Tables for a comment on a change, short enough for any: totals, the most complex functions, kinds of notices. With an earlier
// state of the project (else null) its totals, and the notices that it hasn't.
bool WriteMarkdown(const Model &m, const Model *before, std::FILE *out);

// What a badge tells.
enum class Badge : uint8_t { kLines, kComplexity, kNotices };
inline constexpr const char *kBadgeNames[] = {"lines", "complexity", "notices"};

// JSON for an endpoint of a badge service, or, with svg, a picture.
bool WriteBadge(const Model &m, Badge badge, bool svg, std::FILE *out);

// "TLY12": how all forms name a kind of notice. A notice's own number for people.
std::string RuleName(int number);
// Sixteen hexadecimal digits.
std::string FingerprintText(uint64_t fingerprint);
