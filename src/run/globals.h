// The one state record. Every folder declares its fields in its own *_state.h; this file only joins them, so that G->file_loc works
// everywhere and the file a field stands in tells who owns it.
//
// The second axis is lifetime. What stands in PerFile and PerFileTexts is cleared behind every source file; all else lasts for the
// run. Membership in them is the reset list.
#pragma once

#include "run/baseline_state.h"
#include "run/class_state.h"
#include "run/config_state.h"
#include "run/entities_state.h"
#include "run/extraction_state.h"
#include "run/files_state.h"
#include "run/function_state.h"
#include "run/line_state.h"
#include "run/namespace_state.h"
#include "run/notices_state.h"
#include "run/reading_state.h"
#include "run/records.h"
#include "run/report_cfg_state.h"
#include "run/report_state.h"
#include "run/run_state.h"
#include "run/scope_state.h"
#include "run/tree_state.h"
#include "run/udqn_state.h"

// Texts only, which are cleared by their first byte.
struct PerFileTexts : FunctionTexts, TemplateText {};

// Cleared by ResetState behind every source file.
struct PerFile : FileCounters,
                 FunctionPointValues,
                 LineState,
                 ScopeState,
                 FunctionCounters,
                 FunctionState,
                 FunctionSums,
                 ClassState,
                 NamespaceState,
                 ReadingState {};

struct Globals : RunSwitches,
                 CommandText,
                 ProgramPaths,
                 OutputModes,
                 ReportSwitches,
                 TotalsSwitches,
                 FileSwitches,
                 ToolSwitches,
                 WorkSwitches,
                 Languages,
                 Settings,
                 FileLists,
                 CurrentFile,
                 LineBuffers,
                 EntityLists,
                 ClassRun,
                 NamespaceRun,
                 ReadingRun,
                 ReadingStacks,
                 NoticeRun,
                 UdqnRun,
                 UdqnFileState,
                 ExtractionState,
                 ReportState,
                 CsvElementsState,
                 TreeState,
                 BaselineFiles,
                 BaselineRun,
                 ReportCfgTables,
                 PerFileTexts,
                 PerFile {
    FileCounters total;               // the project: the same shape as one file
    FunctionPointValues total_points; // the project's function points
    LineCounts language_sums[kLanguageGroups];
    FileProgress progress;
    int project_files; // files of all languages, once the totals are set
};
