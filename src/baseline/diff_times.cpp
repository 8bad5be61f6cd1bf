// Times and units of work in the report on two baselines, and the texts of -wb and -ws that explain it.
#include "baseline/diff_times.h"

#include <ctime>
#include <limits>

#include "baseline/diff_columns.h"
#include "baseline/diff_tables.h"
#include "report/forms.h"
#include "report/names.h"
#include "run/globals.h"

namespace {

double Quotient(double value, double divisor) {
    return divisor == 0 ? 0 : value / divisor;
}

// Work files are written by hand too: what no 64 bits hold is the most they do.
int64_t SecondsBetween(int64_t older, int64_t newer) {
    int64_t seconds;
    if (!__builtin_sub_overflow(newer, older, &seconds)) {
        return seconds;
    }
    return newer > older ? std::numeric_limits<int64_t>::max() : std::numeric_limits<int64_t>::min();
}

// A date brings its line end along, but for XML.
constexpr Forms<Shown, const char *> kOlder{
    .text = "  Older Work File: %s\n  Creation Date  : %s\n\n",
    .html = "  <b><font color=\"%{old_file_diff}\">Older Work File</font></b>: %s\n"
            "  <b><font color=\"%{date}\">Creation Date</font></b>  : %s\n\n",
    .csv = "Older Work File %s\nCreation Date %s\n\n",
    .xml = "<older_work_file>\n<name>%s</name>\n<date>%s</date>\n</older_work_file>\n",
};
constexpr Forms<Shown, const char *> kNewer{
    .text = "  Newer Work File: %s\n  Creation Date  : %s\n\n",
    .html = "  <b><font color=\"%{new_file_diff}\">Newer Work File</font></b>: %s\n"
            "  <b><font color=\"%{date}\">Creation Date</font></b>  : %s\n\n",
    .csv = "Newer Work File %s\nCreation Date %s\n\n",
    .xml = "<newer_work_file>\n<name>%s</name>\n<date>%s</date>\n</newer_work_file>\n",
};
constexpr Forms<double, const char *> kDelta{
    .text = "  Work Time Differential Between Files:\n  Time Delta: %12.0f Seconds\n                %s Days:Hrs:Min:Sec\n",
    .html = "  <b><font color=\"%{total}\">Work Time Differential Between Files</font></b>:\n"
            "  <b><font color=\"%{total}\">Time Delta</font></b>: %12.0f Seconds\n                %s Days:Hrs:Min:Sec\n",
    .csv = "Work Time Differential Between Files\nTime Delta %12.0f Seconds or %s Days:Hrs:Min:Sec\n",
};
constexpr Forms<double, long, int, int, int, const char *> kXmlDelta{
    .xml = "<work_time_differential>\n<delta_seconds>%.0f</delta_seconds>\n<days>%ld</days>\n<hours>%d</hours>\n"
           "<minutes>%d</minutes>\n<seconds>%d</seconds>\n<dhms>%s</dhms>\n",
};

constexpr Forms<double> kCalendarDays{
    .text = "\n  Work Time:  %12.2f Calendar Days\n",
    .html = "\n  <b><font color=\"%{total}\">Work Time</font></b>:  %12.2f Calendar Days\n",
    .csv = "\nWork Time\n%12.2f,Calendar Days\n",
    .xml = "<work_time>\n<calendar_days>%.2f</calendar_days>\n",
};
constexpr Forms<double, int> kWorkDays{
    .text = "              %12.2f Work Days @ %d work days per week\n",
    .html = "              %12.2f Work Days @ %d work days per week\n",
    .csv = "%12.2f,Work Days @ %d work days per week\n",
    .xml =
        "<work_days>\n<value>%.2f</value>\n<basis>\n<value>%d</value>\n<note>Work Days Per Week</note>\n</basis>\n</work_days>\n",
};
constexpr Forms<double, int, int> kManHours{
    .text = "              %12.2f Man Hours @ %d Hrs per Shift %d Shifts per Day\n",
    .html = "              %12.2f Man Hours @ %d Hrs per Shift x %d Shifts per Day\n",
    .csv = "%12.2f,Man Hours @ %d Hrs per Shift,%d,Shifts per Day\n",
    .xml = "<man_hours>\n<value>%.2f</value>\n<basis>\n<value>%d</value>\n<note>Hours per shift</note>\n</basis>\n"
           "<basis>\n<value>%d</value>\n<note>Shifts per day</note>\n</basis>\n</man_hours>\n",
};
constexpr Forms<double, int> kManDays{
    .text = "              %12.2f Man Days  @ %d Hrs per Man Day\n",
    .html = "              %12.2f Man Days  @ %d Hrs per Man Day\n",
    .csv = "%12.2f,Man Days  @ %d Hrs per Man Day\n",
    .xml = "<man_days>\n<value>%.2f</value>\n<basis>\n<value>%d</value>\n<note>Hours per man day</note>\n</basis>\n</man_days>\n",
};
constexpr Forms<double, int> kManWeeks{
    .text = "              %12.2f Man Weeks @ %d Hrs per Man Week\n",
    .html = "              %12.2f Man Weeks @ %d Hrs per Man Week\n",
    .csv = "%12.2f,Man Weeks @ %d Hrs per Man Week\n",
    .xml =
        "<man_weeks>\n<value>%.2f</value>\n<basis>\n<value>%d</value>\n<note>Hours per man week</note>\n</basis>\n</man_weeks>\n",
};
constexpr Forms<double, int> kManMonths{
    .text = "              %12.2f Man Month @ %d Hrs per Man Month\n",
    .html = "              %12.2f Man Month @ %d Hrs per Man Month\n",
    .csv = "%12.2f,Man Month @ %d Hrs per Man Month\n",
    .xml = "<man_months>\n<value>%.2f</value>\n<basis>\n<value>%d</value>\n<note>Hours per man "
           "month</note>\n</basis>\n</man_months>\n",
};
constexpr Forms<double, int> kManYears{
    .text = "              %12.2f Man Years @ %d Hrs per Man Year\n",
    .html = "              %12.2f Man Years @ %d Hrs per Man Year\n",
    .csv = "%12.2f,Man Years @ %d Hrs per Man Year\n",
    .xml =
        "<man_years>\n<value>%.2f</value>\n<basis>\n<value>%d</value>\n<note>Hours per man years</note>\n</basis>\n</man_years>\n",
};

void ShowWork(const WorkTime &work, const Globals *G) {
    Print(G, kCalendarDays, work.calendar_days);
    Print(G, kWorkDays, work.work_days, G->work_days_per_week);
    Print(G, kManHours, work.man_hours, G->work_hours_per_shift, G->work_shifts_per_day);
    Print(G, kManDays, work.man_days, G->work_hours_per_man_day);
    Print(G, kManWeeks, work.man_weeks, G->work_hours_per_man_week);
    Print(G, kManMonths, work.man_months, G->work_hours_per_man_month);
    Print(G, kManYears, work.man_years, G->work_hours_per_man_year);
}

constexpr Forms<> kTooLittleWork{
    .text = "\n  Productivity Estimate cannot be calculated on Man Hours < 1.0\n",
    .html = "\n  <b><font color=\"%{header}\">Productivity Estimate</font> cannot be calculated on Man Hours < 1.0</b>\n",
    .csv = "\nProductivity Estimate cannot be calculated on Man Hours < 1.0\n",
    .xml = "<note>Productivity Estimate cannot be calculated on Man Hours &lt; 1.0</note>\n",
};
struct Unit {
    double WorkTime::*work;
    const char *label;
    const char *tag; // null for what a page alone shows
};
constexpr Unit kUnits[] = {
    {&WorkTime::man_hours, "Per Man Hour", "totals_man_hour"}, {&WorkTime::man_days, "Per Man Day", "totals_man_days"},
    {&WorkTime::man_weeks, "Per Man Week", "totals_man_week"}, {&WorkTime::man_months, "Per Man Month", "totals_man_month"},
    {&WorkTime::man_years, "Per Man Year", nullptr},
};

void ShowUnit(const Unit &unit, const WorkTime &work, Globals *G) {
    static constexpr Forms<const char *> kOpen{
        .text = "  Tot ", .html = "  <b><font color=\"%{total}\">Tot</font></b> ", .csv = "Tot", .xml = "<%s>\n"};
    static constexpr Forms<const char *> kClose{.text = "    %s\n", .html = "    %s\n", .csv = ",%s\n", .xml = "</%s>\n"};
    Print(G, kOpen, unit.tag);
    DiffProfileLine(G, work.*unit.work);
    Print(G, kClose, OutputMode(G) == Mode::kXml ? unit.tag : unit.label);
}

void ShowXmlUnits(const WorkTime &work, Globals *G) {
    Put("<productivity_estimate>\n");
    for (const Unit &unit : kUnits) {
        if (unit.tag) {
            ShowUnit(unit, work, G);
        }
    }
    Put("</productivity_estimate>\n");
}

// Explanations: a title, then lines of a label and what it means, aligned behind the longest label.

struct FormulaRow {
    const char *label, *formula;
};
constexpr FormulaRow kFormulas[] = {
    {"Calendar Days", "Delta Time (s) / Seconds per Day"},
    {"Work Days", "Calendar Days * (Work Days per Week / 7 Days per Week)"},
    {"Man Hours", "Work Days * Work Hours per Shift * Shifts per Day"},
    {"Man Days", "Man Hours / Hours per Man Day"},
    {"Man Weeks", "Man Hours / Hours per Man Week"},
    {"Man Months", "Man Hours / Hours per Man Month"},
    {"Man Years", "Man Hours / Hours per Man Years"},
};

struct BasisRow {
    const char *label;
    int Settings::*value;
};
constexpr BasisRow kBasis[] = {
    {"Work Seconds per Hour", &Settings::work_seconds_per_hour},
    {"Work Hours per Shift", &Settings::work_hours_per_shift},
    {"Work Shifts per Day", &Settings::work_shifts_per_day},
    {"Work Days per Week", &Settings::work_days_per_week},
    {"Work Hours per Man Day", &Settings::work_hours_per_man_day},
    {"Work Hours per Man Week", &Settings::work_hours_per_man_week},
    {"Work Hours per Man Month", &Settings::work_hours_per_man_month},
    {"Work Hours per Man Year", &Settings::work_hours_per_man_year},
};
constexpr int kBasisWidth = 24;

void ExplainLine(const char *label, const char *sign, const char *meaning, const Globals *G) {
    const int blanks = kBasisWidth - static_cast<int>(strlen(label));
    switch (OutputMode(G)) {
    case Mode::kHtml: Put("  <b>%s</b>%*s%s %s\n", label, blanks, "", sign, meaning); break;
    case Mode::kXml: Put("<note>%s %s %s</note>\n", label, sign, meaning); break;
    case Mode::kCsv:
    case Mode::kText: Put("  %s%*s%s %s\n", label, blanks, "", sign, meaning); break;
    }
}

void OpenExplanation(const char *title, const char *tag, Globals *G) {
    if (OutputMode(G) == Mode::kXml) {
        Put("<%s>\n<name>%s</name>\n", tag, title);
    }
    DiffTitle(title, G);
    DiffDataRule(G);
}

void CloseExplanation(const char *tag, const Globals *G) {
    if (OutputMode(G) == Mode::kXml) {
        Put("</%s>\n", tag);
    }
}

} // namespace

WorkTime TimeBetween(int64_t older, int64_t newer, const Globals *G) {
    WorkTime work{};
    const int64_t seconds = SecondsBetween(older, newer);
    work.delta = static_cast<double>(seconds);
    work.days = seconds / 86400;
    work.hours = static_cast<int>(seconds % 86400 / 3600);
    work.minutes = static_cast<int>(seconds % 3600 / 60);
    work.seconds = static_cast<int>(seconds % 60);
    FormatText(work.dhms, "%ld:%02d:%02d:%02d", work.days, work.hours, work.minutes, work.seconds);
    work.calendar_days = work.delta / 86400.0;
    work.work_days = G->work_days_per_week / 7.0 * Quotient(work.delta, G->work_seconds_per_hour * 24.0);
    work.man_hours = G->work_hours_per_shift * work.work_days * G->work_shifts_per_day;
    work.man_days = Quotient(work.man_hours, G->work_hours_per_man_day);
    work.man_weeks = Quotient(work.man_hours, G->work_hours_per_man_week);
    work.man_months = Quotient(work.man_hours, G->work_hours_per_man_month);
    work.man_years = Quotient(work.man_hours, G->work_hours_per_man_year);
    return work;
}

void ShowWorkTimes(int64_t older, int64_t newer, const WorkTime &work, const Globals *G) {
    const Mode mode = OutputMode(G);
    const time_t older_date = older, newer_date = newer;
    Print(G, kOlder, Shown{G->older_work_name}, get_date(&older_date).c_str());
    Print(G, kNewer, Shown{G->newer_work_name}, get_date(&newer_date).c_str());
    Print(G, kDelta, work.delta, work.dhms);
    Print(G, kXmlDelta, work.delta, work.days, work.hours, work.minutes, work.seconds, work.dhms);
    if (G->show_productivity || mode == Mode::kXml) {
        ShowWork(work, G);
    }
    if (mode == Mode::kXml) {
        Put("</work_time>\n</work_time_differential>\n");
    }
}

void ShowProductivity(const WorkTime &work, Globals *G) {
    const Mode mode = OutputMode(G);
    if (work.man_hours < 1.0) {
        if (G->show_productivity) {
            Print(G, kTooLittleWork);
        }
        return;
    }
    if (mode == Mode::kXml) {
        ShowXmlUnits(work, G);
    } else if (G->show_productivity) {
        Put("\n");
        DiffTitle("Productivity Estimate", G);
        DiffDataHeader(G, DiffTable::kProductivity);
        for (const Unit &unit : kUnits) {
            ShowUnit(unit, work, G);
        }
    }
}

void ShowWorkBasis(Globals *G) {
    constexpr const char *kTag = "work_time_basis";
    OpenExplanation("Work Time Basis", kTag, G);
    for (const FormulaRow &row : kFormulas) {
        ExplainLine(row.label, "=", row.formula, G);
    }
    for (const BasisRow &row : kBasis) {
        char value[16];
        FormatText(value, "%d", G->*row.value);
        ExplainLine(row.label, ":", value, G);
    }
    CloseExplanation(kTag, G);
}

void ShowListingLegend(Globals *G) {
    static constexpr const char *kLines[] = {
        "= Older file line is equal to the newer file line",
        "- Line removed from the newer file",
        "+ Line added to the newer file",
        "L Line of Code",
        "l Line of Code and Line of Comment",
        "N Non-Effective Line of Code",
        "n Non-Effective Line of Code and Line of Comment",
        "G Logical Line of Code",
        "g Logical Line of Code and Line of Comment",
        "C Comment Line",
        "B Blank Line (if blanks are processed)",
    };
    static constexpr Forms<const char *> kLine{.text = "  %s\n", .html = "  %s\n", .csv = "  %s\n", .xml = "<note>%s</note>\n"};
    constexpr const char *kTag = "code_differential_details";
    OpenExplanation("Code Differential Details Glossary", kTag, G);
    for (const char *line : kLines) {
        Print(G, kLine, line);
    }
    CloseExplanation(kTag, G);
}
