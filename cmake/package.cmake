# What a host's author gets, as an installed folder or as a zip: the library, its headers, what works on the picture in
# the host's own program, the guides and the example. Documents and example lie where they lie in the project, so that a
# path which one of them tells is true in both.
include(CMakePackageConfigHelpers)

set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)  # no program and no test need be built for it

install(TARGETS set32 RUNTIME DESTINATION bin ARCHIVE DESTINATION lib)
install(TARGETS set32_dib set32_win32 set32_platform ARCHIVE DESTINATION lib)
install(DIRECTORY include/set32 DESTINATION include)
install(DIRECTORY apps/example-host DESTINATION apps)
install(DIRECTORY samples/options DESTINATION samples)
install(FILES LICENSE CHANGELOG.md DESTINATION .)
install(FILES docs/host-guide.md DESTINATION docs)
file(GLOB pictures CONFIGURE_DEPENDS docs/*.png)
install(FILES ${pictures} DESTINATION docs)

write_basic_package_version_file(${PROJECT_BINARY_DIR}/set32ConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES cmake/package/set32Config.cmake ${PROJECT_BINARY_DIR}/set32ConfigVersion.cmake
        DESTINATION lib/cmake/set32)

math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME set32-${PROJECT_VERSION}-windows-${bits})
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Settings panel of a scanner's data source")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_SOURCE_DIR}/build/packages)
include(CPack)
