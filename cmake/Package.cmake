# The Debian package: cmake --build build/release --target package.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/DebianFiles.cmake)

set(CPACK_DEBIAN_PACKAGE_NAME sonvire)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Sonvire developers <sonvire@quenbysoftware.example>")
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://www.quenbysoftware.example/sonvire")
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# What a program loads while it runs, which nothing tells dpkg; Debian 13 has the plug-ins for SVG in a package of their own.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libcubeb0, libsndfile1, libsoxr0, libssl3t64 | libssl3, qt6-svg-plugins | libqt6svg6 (<< 6.7.2-5~)")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "test tone generator")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Sonvire generates test tones for the audio engineer with a meter on the bench,
the acoustics teacher and the hi-fi owner hunting a rattle. A tone has a
waveform, 1 to 16 components, mono or stereo, sweeps, levels in dB and a
duration; every change of it is heard at once. Tones, WAVE files and silences
are strung into lists, and any of it is rendered into a WAVE file that is exact
to the bit. A second quality is for measuring: any rate, 24 bits or float, exact
levels, FLAC and other kinds of files.
.
Beside the window there is sonvire-cli, which does the same in scripts.")

include(CPack)
