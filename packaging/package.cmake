# Installation and the Debian package. `cmake --install` and `cpack -G DEB`
# install the same files: every program of the project (stripped), the
# gzip-compressed manual pages of the project root, and under the doc folder
# the README, the examples, the copyright and the changelog.
# Included at the end of the top-level CMakeLists.txt, so that every program
# target is defined when it runs.
include(GNUInstallDirs)


# Programs are installed stripped by a plain `cmake --install` too, as in the
# package; the build folder keeps the unstripped ones for debugging.
install(CODE "set(CMAKE_INSTALL_DO_STRIP TRUE)")
get_directory_property(RULEFORGE_TARGETS DIRECTORY ${PROJECT_SOURCE_DIR} BUILDSYSTEM_TARGETS)
foreach(target ${RULEFORGE_TARGETS})
  get_target_property(type ${target} TYPE)
  if(type STREQUAL EXECUTABLE AND target MATCHES "^ruleforge(-[a-z]+)?$")
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  endif()
endforeach()

# Compressed without name or time stamp (gzip -n), so that two builds of the
# same sources give the same bytes.
find_program(RULEFORGE_GZIP gzip REQUIRED)
set(RULEFORGE_COMPRESSED "")
function(ruleforge_compress source output destination)
  add_custom_command(OUTPUT ${output}
                     COMMAND ${RULEFORGE_GZIP} -9n -c ${source} > ${output}
                     DEPENDS ${source} VERBATIM)
  install(FILES ${output} DESTINATION ${destination})
  set(RULEFORGE_COMPRESSED ${RULEFORGE_COMPRESSED} ${output} PARENT_SCOPE)
endfunction()

file(GLOB RULEFORGE_PAGES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/ruleforge*.1)
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/man)
foreach(page ${RULEFORGE_PAGES})
  get_filename_component(name ${page} NAME)
  ruleforge_compress(${page} ${PROJECT_BINARY_DIR}/man/${name}.gz ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
# The packaging is part of the sources, so the package is a native one: its
# version is the project's, without a Debian revision, and its changelog is
# changelog.gz.
configure_file(${CMAKE_CURRENT_LIST_DIR}/changelog.in ${PROJECT_BINARY_DIR}/changelog @ONLY)
ruleforge_compress(${PROJECT_BINARY_DIR}/changelog ${PROJECT_BINARY_DIR}/changelog.gz
                   ${CMAKE_INSTALL_DOCDIR})
add_custom_target(ruleforge_compressed ALL DEPENDS ${RULEFORGE_COMPRESSED})

install(FILES ${PROJECT_SOURCE_DIR}/README.md ${CMAKE_CURRENT_LIST_DIR}/copyright
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)

# `cpack -G DEB` in the build folder makes the Debian package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ruleforge)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "filter rule text generator for network gateways")
# Lines of the long description stay within 80 columns.
string(CONCAT CPACK_PACKAGE_DESCRIPTION
  "ruleforge writes the firewall filter rules of a network gateway. It joins\n"
  "a template, which lists the rules a filter may contain, with the user's\n"
  "data (variants switched on, hosts and values entered) into filter rule\n"
  "text ordered by priority. It reads its own previous output on standard\n"
  "input and regenerates it on standard output, so one file per gateway is\n"
  "kept up to date by editing its data lines and running it again.\n"
  "ruleforge-edit edits those data lines, full-screen in the terminal or by\n"
  "commands from scripts, and saves the file regenerated.")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGE_CONTACT "ruleforge maintainers <ruleforge@example.org>")
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "ruleforge maintainers <ruleforge@example.org>")
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
# The dependencies come from dpkg-shlibdeps, which CPack runs only with `file`
# at hand; without either the package names the libraries unversioned.
find_program(RULEFORGE_DPKG_SHLIBDEPS dpkg-shlibdeps)
find_program(RULEFORGE_FILE file)
if(RULEFORGE_DPKG_SHLIBDEPS AND RULEFORGE_FILE)
  set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
else()
  set(CPACK_DEBIAN_PACKAGE_DEPENDS "libc6, libgcc-s1, libstdc++6")
endif()
include(CPack)
