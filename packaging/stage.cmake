# Run by CPack over the installed tree, before it is packed: what only a Debian package has.
set(usr ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr)
set(doc ${usr}/share/doc/tly)
set(readable OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
configure_file(${CPACK_TLY_PACKAGING}/copyright ${doc}/copyright COPYONLY FILE_PERMISSIONS ${readable})
configure_file(${CPACK_TLY_PACKAGING}/changelog ${doc}/changelog.Debian COPYONLY FILE_PERMISSIONS ${readable})
configure_file(${CPACK_TLY_PACKAGING}/lintian-overrides ${usr}/share/lintian/overrides/tly COPYONLY FILE_PERMISSIONS ${readable})
file(GLOB pages ${usr}/share/man/man*/*.[1-8])
execute_process(COMMAND gzip -9n ${doc}/changelog.Debian ${pages} COMMAND_ERROR_IS_FATAL ANY)
# The directories above what is installed have the modes of whoever packs.
file(CHMOD_RECURSE ${usr} DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
