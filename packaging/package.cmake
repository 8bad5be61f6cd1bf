# The Debian package, by "cpack -G DEB" in a build of the preset "package"; scripts/package.sh does it all.
# Its version is that of packaging/changelog, and so is the way it is written: VERSION-REVISION.
file(STRINGS packaging/changelog newest LIMIT_COUNT 1)
string(REGEX MATCH "\\(([^-]+)-([^)]+)\\)" newest "${newest}")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME tly)
set(CPACK_PACKAGE_VERSION ${CMAKE_MATCH_1})
set(CPACK_DEBIAN_PACKAGE_RELEASE ${CMAKE_MATCH_2})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_PACKAGE_CONTACT "Tallyline developers <tallyline@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "source code metrics for C, C++, C# and Java")
set(CPACK_PACKAGE_DESCRIPTION
"Tallyline counts lines of code in several definitions, measures functions,
classes and namespaces, raises quality notices, and compares stored baselines
line by line. It reads sources as they are, without compiling them, and
reports as text, HTML, CSV or XML.
.
tly-report makes JSON, SARIF, Checkstyle, badges or a page with charts of
these figures, and tells which notices are new since a commit.")
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS git)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/packaging/stage.cmake)
set(CPACK_TLY_PACKAGING ${CMAKE_CURRENT_SOURCE_DIR}/packaging)
include(CPack)
