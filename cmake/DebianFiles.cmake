# Run on what is about to be packed: lays out documents as Debian has them.
set(share ${CPACK_TEMPORARY_DIRECTORY}/usr/share)
set(doc ${share}/doc/sonvire)
set(debian ${CMAKE_CURRENT_LIST_DIR}/../data/debian)

file(REMOVE ${doc}/LICENSE) # its text is in copyright
file(COPY ${debian}/copyright DESTINATION ${doc})
file(COPY_FILE ${debian}/changelog ${doc}/changelog.Debian)
file(RENAME ${doc}/CHANGELOG.md ${doc}/changelog)
file(MAKE_DIRECTORY ${share}/lintian/overrides)
file(COPY_FILE ${debian}/lintian-overrides ${share}/lintian/overrides/sonvire)

file(GLOB man_pages ${share}/man/man*/*)
execute_process(COMMAND gzip -9n ${doc}/changelog ${doc}/changelog.Debian ${man_pages} COMMAND_ERROR_IS_FATAL ANY)
