# What "cmake --install" puts where: the programs, their manual pages and completions, share/tly and the documents.
# Modes are set here, so that they don't depend on whose checkout it is.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS tly tly-report)

file(GLOB pages CONFIGURE_DEPENDS docs/*.[1-8])
foreach(page IN LISTS pages)
    string(REGEX MATCH "[1-8]$" section ${page})
    install(FILES ${page} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
endforeach()

# Where the three shells of Debian look for what a package completes; below a home they have to be told.
file(GLOB completions CONFIGURE_DEPENDS share/completions/*)
foreach(completion IN LISTS completions)
    cmake_path(GET completion FILENAME name)
    if(name MATCHES "^_")
        set(place zsh/vendor-completions)
    elseif(name MATCHES "(.*)\\.bash$")
        set(place bash-completion/completions)
        set(name ${CMAKE_MATCH_1})
    else()
        set(place fish/vendor_completions.d)
    endif()
    install(FILES ${completion} DESTINATION ${CMAKE_INSTALL_DATADIR}/${place} RENAME ${name})
endforeach()

install(DIRECTORY share/tly DESTINATION ${CMAKE_INSTALL_DATADIR} PATTERN pre-commit EXCLUDE)
install(PROGRAMS share/tly/pre-commit DESTINATION ${CMAKE_INSTALL_DATADIR}/tly)

# As they lie here, so that their links lead somewhere; docs/tour.md is for whoever has the sources.
install(FILES README.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR}
    FILES_MATCHING PATTERN *.md PATTERN *.png PATTERN *.udqn PATTERN tour.md EXCLUDE)
