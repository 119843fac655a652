# What `cmake --install` puts where, in three components: `library` for a process that loads the map
# library, `development` for whoever builds against it or writes map libraries, `command` for ymap(1).

include(CMakePackageConfigHelpers)

# The stand-ins of the framework and of the siblings go to a folder of their own: the agent's real
# ones have the same names and must never be shadowed.
set(stand_in_libdir ${CMAKE_INSTALL_LIBDIR}/ymap)
set(package_libdir ${CMAKE_INSTALL_LIBDIR}/cmake/ymap_ietf_if)
set(sources ${PROJECT_SOURCE_DIR}/manageability/yang/framework/mapping/ietf-if/src)

# --- Libraries and the command

set_target_properties(ymap_headers PROPERTIES EXPORT_NAME headers)
set_target_properties(ymap_ietf_if PROPERTIES EXPORT_NAME ietf_if)
set_target_properties(ymap_siblings PROPERTIES EXPORT_NAME siblings)

install(TARGETS ymap_headers ymap_ietf_if EXPORT ymap_ietf_if
    LIBRARY COMPONENT library NAMELINK_COMPONENT development)
install(TARGETS ozk_map ymap_siblings EXPORT ymap_ietf_if
    LIBRARY DESTINATION ${stand_in_libdir} COMPONENT command NAMELINK_COMPONENT development)
install(TARGETS ymap RUNTIME COMPONENT command)

# The pages lie to each other as they do in the project, so that their links hold.
set(docdir ${CMAKE_INSTALL_DATAROOTDIR}/doc/ymap)
set(modules ${CMAKE_INSTALL_DATAROOTDIR}/yang/modules/ymap)
foreach(page README CHANGELOG CONTRIBUTING SECURITY)
    install(FILES ${PROJECT_SOURCE_DIR}/${page}.md DESTINATION ${docdir} COMPONENT command)
endforeach()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples DESTINATION ${docdir} COMPONENT command)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${docdir} COMPONENT command
    FILES_MATCHING PATTERN *.md PATTERN *.svg PATTERN yang EXCLUDE)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/yang/ DESTINATION ${modules} COMPONENT command)
file(RELATIVE_PATH modules_from_docs /${docdir}/docs /${modules})
install(CODE "file(CREATE_LINK ${modules_from_docs}
    \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${docdir}/docs/yang\" SYMBOLIC)" COMPONENT command)

# man finds the page by the name of a verb, too.
set(mandir ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/ymap.1 DESTINATION ${mandir} COMPONENT command)
install(CODE "set(mandir \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${mandir}\")
    execute_process(COMMAND gzip -9nf \${mandir}/ymap.1 COMMAND_ERROR_IS_FATAL ANY)
    foreach(verb map read edit serve table replay)
        file(CREATE_LINK ymap.1.gz \${mandir}/ymap-\${verb}.1.gz SYMBOLIC)
    endforeach()" COMPONENT command)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/ymap.bash RENAME ymap
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/bash-completion/completions COMPONENT command)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/ymap.zsh RENAME _ymap
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/zsh/vendor-completions COMPONENT command)

# --- Development files

install(FILES
    ${sources}/ymap.h ${sources}/ymap_ietf_if.h ${sources}/ymap_handlers.h ${sources}/ymap_walkers.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ymap COMPONENT development)
install(FILES
    ${PROJECT_SOURCE_DIR}/framework/run.h
    ${PROJECT_SOURCE_DIR}/framework/tree.h
    ${PROJECT_SOURCE_DIR}/siblings/siblings.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ymap/stand_in COMPONENT development)

install(EXPORT ymap_ietf_if NAMESPACE ymap:: FILE ymap_ietf_if-targets.cmake
    DESTINATION ${package_libdir} COMPONENT development)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ymap_ietf_if-config.cmake.in
    ${PROJECT_BINARY_DIR}/ymap_ietf_if-config.cmake
    INSTALL_DESTINATION ${package_libdir}
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ymap_ietf_if-config-version.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/ymap_ietf_if-config.cmake
    ${PROJECT_BINARY_DIR}/ymap_ietf_if-config-version.cmake
    DESTINATION ${package_libdir} COMPONENT development)

# The .pc files find their prefix from where they lie, so that an installed tree can be moved.
file(RELATIVE_PATH prefix_from_pc
    ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" prefix_from_pc "${prefix_from_pc}")
foreach(package ymap_ietf_if ymap_stand_in)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/${package}.pc.in
        ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${package}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endforeach()
