// The time between two baselines: what it means in work, and what the differences come to per unit of work.
#pragma once

#include <cstdint>

struct Globals;

// Units of work by the settings' hours and days; a setting of 0 that would divide gives 0. All are below 0 when the older baseline
// is the later one.
struct WorkTime {
    double delta; // seconds
    long days;    // the delta split up; all truncated
    int hours, minutes, seconds;
    char dhms[48]; // the same as "days:hours:minutes:seconds"
    double calendar_days, work_days, man_hours, man_days, man_weeks, man_months, man_years;
};

// The time from one baseline to the next, both in seconds of the epoch.
WorkTime TimeBetween(int64_t older, int64_t newer, const Globals *G);
// Shows the two work files with their dates, the time between them and, in XML or with -wp, the work.
void ShowWorkTimes(int64_t older, int64_t newer, const WorkTime &work, const Globals *G);
// Shows the differences per hour, day and so on of work; with less than an hour of it, that they can't be told.
void ShowProductivity(const WorkTime &work, Globals *G);
// -wb: how the units of work are reckoned.
void ShowWorkBasis(Globals *G);
// -wd with -ws: the letters of the line by line listing.
void ShowListingLegend(Globals *G);
