// Blocks and summaries of functions, classes, interfaces and namespaces; the verbose page; the CSV table of functions.
#include "bench.h"

#include "analysis/entities.h"
#include "config/languages.h"
#include "report/entity_lines.h"
#include "report/file_reports.h"
#include "report/project/summaries.h"

namespace {

// What a record is made of; params, cyclo and returns are 2, 3 and 1.
struct Entity {
    const char *name;
    int loc, comments;
    const char *parameters = nullptr, *inherit = nullptr, *template_line = nullptr;
    int nesting = 0, is_struct = 0, methods = 0;
    int functions = 0;
};

struct Desk : StateBench {
    explicit Desk(Mode mode = Mode::kText) {
        G->head_written = G->wrap_long_names = G->complexity_metrics = 1;
        G->ulpi_count = -1;
        CopyText(G->start_dir, "/home/me");
        CopyText(G->cpp_extensions, "cpp");
        CopyText(G->html_class_color, "#c");
        CopyText(G->html_struct_color, "#s");
        CopyText(G->html_header_color, "#h");
        AddBuiltInLanguages(G);
        G->fp_per_language[6] = 50;
        SetMode(mode);
    }
    NodeData *Add(Llist &list, const Entity &e) {
        NodeData record{};
        static_cast<LineCounts &>(record) = {e.loc, e.loc - 2, 4, e.comments, 1, e.loc + 5};
        record.name = const_cast<char *>(e.name);
        record.parameters = const_cast<char *>(e.parameters);
        record.inherit_line = const_cast<char *>(e.inherit);
        record.template_line = const_cast<char *>(e.template_line);
        record.file = "a&b.cpp";
        record.line = 7;
        record.params = 2;
        record.cyclo = 3;
        record.returns = 1;
        record.public_methods = e.methods;
        record.public_data = 1;
        record.private_data = 2;
        record.nesting = e.nesting;
        record.is_struct = e.is_struct;
        record.functions = e.functions;
        record.language = kCppGroup;
        CHECK(AddListNode(0, record, &list, G));
        return Record<NodeData>(list.tail);
    }
};

} // namespace

TEST_CASE("block of a function") {
    for (const Mode mode : kModes) {
        Desk desk(mode);
        NodeData *record = desk.Add(
            desk.G->function_list,
            {.name = "N::f<A,B>", .loc = 10, .comments = 2, .parameters = "(int a, int b)", .template_line = "template<A>"});
        const std::string block = Written([&] { FunctionDataShow(record, desk.G); });
        CHECK((mode != Mode::kText || block == "  Function: N::f<A,B>\n  Parameters: (int a, int b)\n  Template: template<A>\n"
                                               "  Complexity   Param 2       Return 1      Cyclo Vg 3       Total        6\n"
                                               "  LOC 10       eLOC 8        lLOC 4        Comment 2        Lines       15\n\n"));
        CHECK((mode != Mode::kCsv || block == "Function,N::f<A B>,(int a; int b),10,8,4,2,0.25,15,2,1,3,3,6\n"));
        NodeData *unnamed = desk.Add(desk.G->function_list, {.name = "==", .loc = 2, .comments = 1});
        CHECK(Written([&] { FunctionDataShow(unnamed, desk.G); }) == "");
    }
}

TEST_CASE("blocks of classes, interfaces, namespaces") {
    const std::string name(66, 'c');
    for (const int is_struct : {0, 1}) {
        const Entity entity{.name = name.c_str(),
                            .loc = 10,
                            .comments = 2,
                            .inherit = "public A, B",
                            .template_line = "template<A,B>",
                            .nesting = is_struct,
                            .is_struct = is_struct,
                            .methods = 3};
        std::string shown[4];
        for (const Mode mode : kModes) {
            Desk desk(mode);
            NodeData *record = desk.Add(desk.G->class_list, entity);
            shown[static_cast<int>(mode)] = Written([&] { ClassDataShow(record, desk.G); });
        }
        const std::string head = is_struct ? "  Nested Struct: " + name.substr(9) + "\n                 ccccccccc\n"
                                           : "  Class: " + name.substr(1) + "\n         c\n";
        CHECK(shown[0] == head + "  Template: template<A,B>\n  Inheritance: public A, B\n"
                                 "  Attributes   Publ 1        Prot 0        Private 2        Total        3\n"
                                 "  Methods      Publ 3        Prot 0        Private 0        Total        3\n"
                                 "  Complexity   Param 2       Return 1      Cyclo Vg 3       Total        6\n"
                                 "  LOC 10       eLOC 8        lLOC 4        Comment 2        Lines       15\n\n");
        CHECK(
            Has(shown[1], is_struct ? "  <b>Nested Struct</b>: <b><font color=\"#s\">" : ">Class</a></b>: <b><font color=\"#c\">"));
        CHECK(shown[2].starts_with("Class," + name + ",10,8,4,2,0.25,15,2,1,3,3,6,3,3,0,0,3,1,0,2\nTemplate,template<A B>\n"));
        CHECK(shown[3].starts_with(is_struct ? "<nested_struct>" : "<class>"));
        CHECK(WellFormed(shown[3]));
    }
    Desk desk;
    Globals *G = desk.G;
    NodeData *space =
        desk.Add(G->namespace_list, {.name = "N", .loc = 10, .comments = 2, .nesting = 2, .methods = 3, .functions = 5});
    for (const int seen : {0, 1}) {
        G->class_lang_seen = seen;
        CHECK(Has(Written([&] { NamespaceDataShow(space, G); }),
                  seen ? "Functions 5       Avg Func/Class   2.50\n" : "Functions 3       Avg Func/Class   1.50\n"));
    }
    G->csv_mode = 1;
    CHECK(Written([&] { NamespaceDataShow(space, G); }) == "Namespace/Package,N,10,8,4,2,0.25,15,2,1,3,3,6,2,5,3,0,0,3,1,0,2\n");
}

TEST_CASE("summary of functions") {
    std::string shown[4];
    for (const Mode mode : kModes) {
        Desk desk(mode);
        Globals *G = desk.G;
        G->sort_key = 2;
        CHECK(Written([&] { ShowProjectFunctionSummary(G); }) == "");
        desk.Add(G->function_list, {.name = "longer", .loc = 30, .comments = 7});
        desk.Add(G->function_list, {.name = "f", .loc = 10, .comments = -2}); // as after a comment that ended above it
        desk.Add(G->function_list, {.name = "==", .loc = 2, .comments = 1});
        shown[static_cast<int>(mode)] = Written([&] { ShowProjectFunctionSummary(G); });
        G->totals_summaries_only = 1;
        CHECK(!Has(Written([&] { ShowProjectFunctionSummary(G); }), "longer"));
        G->function_metrics_implied = 1;
        CHECK(Written([&] { ShowProjectFunctionSummary(G); }) == "");
    }
    const std::string &text = shown[0];
    CHECK(text.find("Function: f\n") < text.find("Function: longer\n")); // by LOC
    CHECK(Has(text, "\n  Total: Functions  \n  LOC 42       eLOC 36       lLOC 12       InCmp 9        CycloCmp       9\n"));
    CHECK(Has(text, "     -----       \n  Avg Physical Lines ....:      19.00\n"));
    CHECK(Has(text, "  Min Comment Lines .....:          0  Min Total Lines .......:          7\n"));
    CHECK(Has(shown[2], "Function,Total,,42,36,12,6,0.00,57,6,3,9,9,18\n"
                        "Function,Average,,14.00,12.00,4.00,2.00,0.00,19.00,2.00,1.00,3.00,3.00,6.00\n"
                        "Function,Maximum,,30,28,4,7,0.25,35,2,1,3,3,6\n"
                        "Function,Minimum,,2,0,4,0,0.00,7,2,1,3,3,6\n"));
    CHECK(Has(shown[3], "<max_lines>35</max_lines>\n<min_loc>2<"));
    CHECK(WellFormed(shown[3]));
}

TEST_CASE("summaries of classes and of the namespaces they stand in") {
    std::string classes[4], spaces[4];
    for (const Mode mode : kModes) {
        Desk desk(mode);
        Globals *G = desk.G;
        CHECK(AddNamespaceRecord("N", 3, G));
        desk.Add(G->function_list, {.name = "N::f", .loc = 7, .comments = 0});
        desk.Add(G->class_list, {.name = "N::C", .loc = 20, .comments = 4, .methods = 2, .functions = 5});
        desk.Add(G->class_list, {.name = "N::C::D", .loc = 50, .comments = 9, .nesting = 1, .methods = 3});
        G->class_nested_flag = 1;
        Written([&] { ShowProjectFunctionSummary(G); });
        classes[static_cast<int>(mode)] = Written([&] { ShowProjectClassSummary(G); });
        spaces[static_cast<int>(mode)] = Written([&] { ShowProjectNamespaceSummary(G); });
        CHECK(Written([&] { ShowProjectInterSummary(G); }) == "");
    }
    CHECK(Has(classes[0], "  Total Classes/Structs .:          2  Total Nested Classes ..:          1\n"
                          "  Total Methods .........:          5\n"));
    CHECK(Has(classes[0], "  Total Physical Lines ..:         25  Total LOC .............:         20\n"));
    CHECK(Has(classes[0], "  Max LOC ...............:         50  Max eLOC ..............:         48\n"));
    CHECK(Has(classes[2], "Class,Total,20,18,4,4,0.22,25,2,1,3,3,6,5,2,0,0,3,1,0,2\nClass,Average,10.00,"));
    CHECK(Has(spaces[0], "Total LOC .............:         27\n")); // f and C
    CHECK(WellFormed(classes[3] + spaces[3]));
}

TEST_CASE("summary of a file's functions") {
    const auto shown = [](Mode mode) {
        Desk desk(mode);
        Globals *G = desk.G;
        CHECK(Written([&] { ShowFileFunctionSummary(G); }) == "");
        G->file_functions = 3, G->func_loc_sum = 50, G->func_loc_max = 30, G->func_comment_sum = 6;
        G->params_total = 4, G->params_max = 2, G->returns_total = 3, G->returns_max = 1;
        G->cyclo_total = 8, G->cyclo_max = 5, G->intercmp_max = 8;
        WhichFile("a.cpp", G, 0);
        return Written([&] { ShowFileFunctionSummary(G); });
    };
    CHECK(Has(shown(Mode::kText), "  Max Interface Complex. :          3  Avg Interface Complex. :       2.33\n"
                                  "  Max Cyclomatic Complex.:          5  Avg Cyclomatic Complex.:       2.67\n"
                                  "  Max Total Complexity ..:          8  Avg Total Complexity ..:       5.00\n"));
    CHECK(Has(shown(Mode::kCsv), "Total Complex,15,Func Pts(LOC),       1.0,"));
    CHECK(Has(shown(Mode::kCsv), "\nFile Functional Maximum Summary\nLOC,30,eLOC,0,lLOC,0,,,Parameters,2,Returns,1,"));
    CHECK(WellFormed(shown(Mode::kXml)));
}

TEST_CASE_FIXTURE(Desk, "verbose page") {
    const auto shown = [&](int project) { return Written([&] { ShowVerbose(G, project); }); };
    const std::string empty = shown(0);
    CHECK(
        Has(empty, "                       ~~ File Keywords and Metrics ~~\n\n  --------------- LOC ---------------  case, break"));
    CHECK(Has(empty, "  Comment Lines .......:            0  inline ..............:            0\n"));
    CHECK(Has(empty, "  Characters, Spaces ..:  0.0%,  0.0%\n"));
    G->xml_mode = 1;
    CHECK(Has(shown(0), "<loc_percent_logical_lines>0</loc_percent_logical_lines>"));
    G->file_loc = 6, G->file_comments = 1, G->file_blank = 1, G->just_brace_count = 2, G->file_chars = 80, G->file_white = 20;
    CHECK(Has(shown(1), "<name>Total Verbose Metrics</name>"));
    CHECK(Has(shown(1), "<eloc_percent_logical_lines>50.0</eloc_percent_logical_lines>"));
    CHECK(WellFormed(shown(1)));
    G->html_mode = 1;
    CHECK(Has(shown(1),
              "  <b>--------------- <font color=\"#h\">LOC</font> ---------------</b>  <b>case, break .........:</b>     0,"));
    CHECK(Has(shown(1), "<b>Chars/NBLine, Notices:</b>     8,     0\n"));
}

TEST_CASE_FIXTURE(Desk, "detail of a complexity") {
    G->complexity_detail = G->cyclo_while = G->cyclo_and = 1;
    G->local_while = 2, G->local_if = 1, G->local_and = 3;
    CHECK(Written([&] { ComplexDetails(1, G); }) == "");
    CHECK(Written([&] { ComplexDetails(6, G); }) == "    Cyclomatic Complexity Vg Detail\n      Function Base           : 1\n"
                                                    "      Loops while / do        : 2     \n"
                                                    "      Logical and ( && )      : 3     \n");
}

TEST_CASE("CSV table of functions") {
    Desk desk(Mode::kCsv);
    Globals *G = desk.G;
    const auto rows = [&] {
        return Written([&] {
            char f[] = "f<A,B>", parameters[] = "(int a, int b)";
            NodeData record{};
            static_cast<LineCounts &>(record) = {10, 8, 4, 2, 1, 14};
            record.name = f, record.parameters = parameters, record.params = 2, record.returns = 1, record.cyclo = 3;
            CSV_Function_Line(record, G);
            static_cast<LineCounts &>(record) = {91, 8, 4, 4, 1, 14};
            record.parameters = nullptr, record.params = 0, record.cyclo = 5;
            CSV_Function_Line(record, G);
            CSV_Function_Total(G);
            CSV_Function_Total(G); // finds no functions
        });
    };
    CHECK(rows() == "");
    G->csv_function_lines = G->csv_file_lines = 1;
    rows();
    CHECK(rows() == "Function, f<A B>, (int a; int b), ,, 10, 8, 4, 2, 1, 14, 0.25, , 1, 2, 1, 3, 3, 6, \n"
                    "Function, f<A B>, , ,, 91, 8, 4, 4, 1, 14, 0.50, , 1, 0, 1, 1, 5, 6, \n"
                    "\nFunction, Total,, , , 101, 16, 8, 6, 2, 28, 0.75, , 2, 2, 2, 4, 8, 12, \n"
                    ", Average,, , , 50.50, 8.00, 4.00, 3.00, 1.00, 14.00, 0.38, , 1.00, 1.00, 1.00, 2.00, 4.00, 6.00, \n"
                    ", Maximum,, , , 91, 8, 4, 4, 1, 14, 0.50, , 1, 2, 1, 3, 5, 6, \n"
                    ", Minimum,, , , 10, 8, 4, 2, 1, 14, 0.25, , 1, 0, 1, 1, 3, 6, \n");
    G->function_points = 1;
    G->fp_per_language[6] = 10;
    WhichFile("a.cpp", G, 0);
    CHECK(Has(rows(), ", Average, , ,, 50.50/5.1       , 8.00/0.0       ,")); // of 51 lines
}
