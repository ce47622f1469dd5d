# Installs the C interface with what finds it: find_package(Vanoka) gives the target Vanoka::vanoka, and pkg-config
# knows it as vanoka.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Vanoka")

install(TARGETS vanoka EXPORT VanokaTargets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT c)
install(FILES "${PROJECT_SOURCE_DIR}/c/vanoka.h" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT c)
install(EXPORT VanokaTargets FILE VanokaConfig.cmake NAMESPACE Vanoka:: DESTINATION "${package_folder}" COMPONENT c)
write_basic_package_version_file("${CMAKE_CURRENT_BINARY_DIR}/VanokaConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/VanokaConfigVersion.cmake" DESTINATION "${package_folder}" COMPONENT c)

# Relative, so that what is installed may be moved.
file(RELATIVE_PATH prefix_from_here "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
configure_file("${PROJECT_SOURCE_DIR}/cmake/vanoka.pc.in" "${CMAKE_CURRENT_BINARY_DIR}/vanoka.pc" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/vanoka.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT c)
