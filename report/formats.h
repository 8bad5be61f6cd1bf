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

// "TLY12": how all forms name a kind of notice. A notice's own number for people.
std::string RuleName(int number);
// Sixteen hexadecimal digits.
std::string FingerprintText(uint64_t fingerprint);
