# Debian packages by CPack, one for each component of Install.cmake; see scripts/package.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ymap-ietf-if)
set(CPACK_PACKAGE_CONTACT "ymap-ietf-if maintainers <maintainers@ymap.example>"
    CACHE STRING "Maintainer field of the packages")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL library development command)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# libozk_map.so.1 is the command's own.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/framework)

set(version "(= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libymap-ietf-if${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION
    "YANG map library for ietf-interfaces
Maps requests on ietf-interfaces to a router's native YANG models, and native
data back, inside the agent's process.")
# Packages that are built against the library find by this what to depend on.
file(WRITE ${PROJECT_BINARY_DIR}/shlibs "libymap_ietf_if ${PROJECT_VERSION_MAJOR} "
    "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} (>= ${PROJECT_VERSION})\n")
set(CPACK_DEBIAN_LIBRARY_PACKAGE_CONTROL_EXTRA
    ${PROJECT_BINARY_DIR}/shlibs ${PROJECT_SOURCE_DIR}/packaging/triggers)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libymap-ietf-if-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
# The command's package holds the stand-in of the framework that ymap::ozk_map stands for.
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} ${version}, ymap ${version}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "YANG map library for ietf-interfaces, development files
Headers, CMake package and pkg-config file.")

set(CPACK_DEBIAN_COMMAND_PACKAGE_NAME ymap)
set(CPACK_DEBIAN_COMMAND_PACKAGE_SECTION net)
set(CPACK_DEBIAN_COMMAND_PACKAGE_DEPENDS "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} ${version}")
set(CPACK_DEBIAN_COMMAND_PACKAGE_SUGGESTS openssh-server)
set(CPACK_COMPONENT_COMMAND_DESCRIPTION
    "command that walks YANG map libraries, and NETCONF server
Maps NETCONF documents as a router's agent does, over a stand-in of the agent's
mapping framework; carries reads and edits out on native documents, for NETCONF
clients too, as a subsystem of OpenSSH.")

# What each package has of its own below share/doc.
file(STRINGS ${PROJECT_SOURCE_DIR}/packaging/changelog newest LIMIT_COUNT 1)
if(NOT newest MATCHES "^ymap-ietf-if \\(${PROJECT_VERSION}\\) ")
    message(FATAL_ERROR "packaging/changelog is of another version: ${newest}")
endif()
execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/packaging/changelog
    OUTPUT_FILE ${PROJECT_BINARY_DIR}/changelog.gz COMMAND_ERROR_IS_FATAL ANY)
foreach(component ${CPACK_COMPONENTS_ALL})
    string(TOUPPER ${component} name)
    install(FILES ${PROJECT_BINARY_DIR}/changelog.gz ${PROJECT_SOURCE_DIR}/packaging/copyright
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${name}_PACKAGE_NAME}
        COMPONENT ${component})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/packaging/ymap.lintian-overrides RENAME ymap
    DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides COMPONENT command)

include(CPack)
