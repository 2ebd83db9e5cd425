# The CMake package of the installed host libraries.

include(CMakePackageConfigHelpers)

set(package_folder "${CMAKE_INSTALL_LIBDIR}/cmake/Quarvel")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/QuarvelConfig.cmake.in" "${CMAKE_BINARY_DIR}/generated/QuarvelConfig.cmake"
                              INSTALL_DESTINATION "${package_folder}")
write_basic_package_version_file("${CMAKE_BINARY_DIR}/generated/QuarvelConfigVersion.cmake" COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_BINARY_DIR}/generated/QuarvelConfig.cmake" "${CMAKE_BINARY_DIR}/generated/QuarvelConfigVersion.cmake"
        DESTINATION "${package_folder}")
install(EXPORT QuarvelTargets NAMESPACE Quarvel:: DESTINATION "${package_folder}")
# Extensions of other programs, to be copied into their folders.
install(DIRECTORY "${PROJECT_SOURCE_DIR}/integrations" DESTINATION "${CMAKE_INSTALL_DATADIR}/quarvel" PATTERN "__pycache__" EXCLUDE)
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" "${PROJECT_SOURCE_DIR}/README.md" DESTINATION "${CMAKE_INSTALL_DOCDIR}")
