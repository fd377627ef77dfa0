# What is installed of the library: itself, its headers, a CMake package and a pkg-config file. The
# host platform and the tools bring rules of their own.

include(CMakePackageConfigHelpers)

file(STRINGS "${PROJECT_SOURCE_DIR}/cmake/public-headers.txt" klx_public_headers)
list(TRANSFORM klx_public_headers PREPEND "${PROJECT_SOURCE_DIR}/")
set(klx_header_dir "${CMAKE_INSTALL_INCLUDEDIR}/KLXDeviceInfo")
set(klx_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/KLXDeviceInfo")

install(TARGETS KLXDeviceInfo EXPORT KLXDeviceInfoTargets
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev)
install(FILES ${klx_public_headers} DESTINATION "${klx_header_dir}" COMPONENT dev)

# Who links the library links the host platform behind it, so the package names both.
if(KLX_PLATFORM STREQUAL "host")
    set(klx_platform_header_dir "${CMAKE_INSTALL_INCLUDEDIR}/KLXPlatform")
    set_target_properties(klx_platform PROPERTIES EXPORT_NAME Platform)
    set_target_properties(klx_platform_api PROPERTIES
        EXPORT_NAME PlatformInterface
        INTERFACE_INCLUDE_DIRECTORIES
            "$<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/platform/include>;$<INSTALL_INTERFACE:${klx_platform_header_dir}>")
    install(TARGETS klx_platform klx_platform_api EXPORT KLXDeviceInfoTargets
        LIBRARY COMPONENT runtime NAMELINK_COMPONENT dev)
    install(DIRECTORY platform/include/ DESTINATION "${klx_platform_header_dir}" COMPONENT dev)
endif()

install(EXPORT KLXDeviceInfoTargets
    NAMESPACE KLX::
    DESTINATION "${klx_package_dir}"
    COMPONENT dev)
configure_package_config_file(cmake/KLXDeviceInfoConfig.cmake.in
    "${PROJECT_BINARY_DIR}/cmake/KLXDeviceInfoConfig.cmake"
    INSTALL_DESTINATION "${klx_package_dir}"
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/cmake/KLXDeviceInfoConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(
    FILES
        "${PROJECT_BINARY_DIR}/cmake/KLXDeviceInfoConfig.cmake"
        "${PROJECT_BINARY_DIR}/cmake/KLXDeviceInfoConfigVersion.cmake"
    DESTINATION "${klx_package_dir}"
    COMPONENT dev)

# The pkg-config file finds its prefix from where it lies, so that the tree can be moved.
set(klx_pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH klx_prefix_from_pkgconfig
    "${CMAKE_INSTALL_PREFIX}/${klx_pkgconfig_dir}" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" klx_prefix_from_pkgconfig "${klx_prefix_from_pkgconfig}")
configure_file(cmake/KLXDeviceInfo.pc.in "${PROJECT_BINARY_DIR}/cmake/KLXDeviceInfo.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/cmake/KLXDeviceInfo.pc"
    DESTINATION "${klx_pkgconfig_dir}"
    COMPONENT dev)

# Libraries find their neighbours, tools find ../lib, wherever the tree is.
file(RELATIVE_PATH klx_libs_from_bin
    "${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}"
    "${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}")
set_target_properties(KLXDeviceInfo PROPERTIES INSTALL_RPATH "$ORIGIN")
if(TARGET klxctl)
    set_target_properties(klxctl PROPERTIES INSTALL_RPATH "$ORIGIN/${klx_libs_from_bin}")
endif()
