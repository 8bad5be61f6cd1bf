# One file that needs no library of the machine it runs on, static/tly in the build: a link tly-report to it is the other program.

# It has to fit into 4 MB: the scanner's speed is worth its room, that of reading a command line isn't.
target_compile_options(report_core PRIVATE -O2)
target_compile_options(report_options PRIVATE -Os)

# A program as one object, whose only symbol is its main.
function(add_program_object main)
    list(TRANSFORM ARGN REPLACE "(.+)" "$<TARGET_OBJECTS:\\1>" OUTPUT_VARIABLE objects)
    add_custom_command(OUTPUT ${main}.o
        COMMAND ${CMAKE_CXX_COMPILER} -o ${main}.o -r -nostdlib -flto -flto-partition=one -flinker-output=nolto-rel -fno-gnu-unique
            -Wl,--force-group-allocation ${objects}
        COMMAND ${CMAKE_OBJCOPY} --redefine-sym main=${main} --keep-global-symbol=${main} ${main}.o
        DEPENDS ${objects} ${ARGN}
        COMMAND_EXPAND_LISTS VERBATIM)
endfunction()

add_program_object(TlyMain tly_core tly)
add_program_object(TlyReportMain report_core report_options tly-report)
set(CMAKE_FIND_LIBRARY_SUFFIXES .a)
pkg_check_modules(ARCHIVES REQUIRED IMPORTED_TARGET libpcre2-posix libpcre2-8 expat libxxhash)
add_executable(static packaging/both.cpp TlyMain.o TlyReportMain.o)
target_link_libraries(static PRIVATE PkgConfig::ARCHIVES)
target_link_options(static PRIVATE -static-pie -Wl,--gc-sections,-z,pack-relative-relocs -s)
set_target_properties(static PROPERTIES OUTPUT_NAME tly RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/static)
