// The frame of a report: titles, centring, rules, the close of the document. Its heads are in project/report_head.h.
#pragma once

struct Globals;

// The blanks ahead of a centred text: 38 less half of its length; one when it is too long to be centred.
const char *CenterBlanks(const char *text);
// Writes a text centred on the page, with a line feed; longer texts behind one blank. The text goes out as it stands.
void Center(const char *text);
// Writes marked-up text centred by the width of the plain text.
void Center_HTML(const char *plain, const char *marked);
// "\n  <rule>\n\n" of 72 dashes, ahead of a report.
void DashRule();
// "  <rule>\n\n" of 72 underscores, at the end of a head or a run.
void UnderscoreRule();
// The line feed ahead of a report or a block, where it isn't part of a rule. In CSV the line of the project heading,
// "Project,5,Files", stays open until then.
void BeginBlock(Globals *G);
// Ends that line ahead of a report that doesn't begin with a line feed.
void EndHeading(Globals *G);
// Center(title), in HTML in the header colour: what stands between a report's rule and its lines. Text and HTML only.
void CenteredTitle(const char *title, const Globals *G);
// The sort line of a report; nothing without a sort key.
void ShowSortMethod(const Globals *G);
// The close of the document: banner, "</pre></body></html>", "</vxtly>".
void CloseDocument(Globals *G);
// The compile date as the compiler writes it, "Sep  2 2009".
const char *BuildDate();
