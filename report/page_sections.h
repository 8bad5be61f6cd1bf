// What stands between the headings of a page: each appends the HTML of one section to out. A section whose part the input doesn't
// have says so, and shows no zeros.
#pragma once

#include <string>

#include "page.h"

void WriteSummary(std::string &out, const PageInput &in);
void WriteComparison(std::string &out, const PageInput &in); // in.comparison is there
void WriteTrend(std::string &out, const PageInput &in);      // in.trend isn't empty
void WriteLanguages(std::string &out, const PageInput &in);
void WriteComplexity(std::string &out, const PageInput &in);
void WriteWorst(std::string &out, const PageInput &in); // functions
void WriteFiles(std::string &out, const PageInput &in);
void WriteKinds(std::string &out, const PageInput &in); // of notices
void WriteInheritance(std::string &out, const PageInput &in);
