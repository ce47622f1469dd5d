# Installs the core as a CMake package: find_package(VanokaCore) gives the target Vanoka::Core.
include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/VanokaCore")

install(TARGETS VanokaCore EXPORT VanokaCoreTargets ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT core)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/core/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/vanoka"
    COMPONENT core FILES_MATCHING PATTERN "*.h")
install(EXPORT VanokaCoreTargets NAMESPACE Vanoka:: DESTINATION "${package_folder}" COMPONENT core)

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/VanokaCoreConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/VanokaCoreConfig.cmake" INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VanokaCoreConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/VanokaCoreConfig.cmake"
    "${PROJECT_BINARY_DIR}/VanokaCoreConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/FindUtf8proc.cmake"
    DESTINATION "${package_folder}" COMPONENT core)
