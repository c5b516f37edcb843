# Installing a library: its headers, its CMake package and its pkg-config file. Packages are made of all that
# have been installed so.

include(CMakePackageConfigHelpers)

# zel_install_library(LIBRARY
#     SUMMARY     some words that say what it is
#     DESCRIPTION some lines that say it to whoever looks for a package
#     TARGETS     its own target, and those that come with it
#     HEADERS     those that no target names as its PUBLIC_HEADER
#     NEEDS       libraries of this project that were installed before and that its users need as well)
#
# The components LIBRARY_runtime and LIBRARY_development are what runs with it and what is built with it.
function(zel_install_library library)
    cmake_parse_arguments(PARSE_ARGV 1 install "" "SUMMARY;DESCRIPTION" "TARGETS;HEADERS;NEEDS")
    zel_install_targets()
    zel_install_cmake_package()
    zel_install_pkgconfig_file()

    set(zel_libraries ${zel_libraries} ${library} PARENT_SCOPE)
    foreach(field IN ITEMS SUMMARY DESCRIPTION NEEDS)
        set(${library}_${field} "${install_${field}}" PARENT_SCOPE)
    endforeach()
endfunction()

# The parts of zel_install_library(), whose variables they read.

macro(zel_install_targets)
    set(headers_dir ${CMAKE_INSTALL_INCLUDEDIR}/${library})
    install(
        TARGETS ${install_TARGETS}
        EXPORT ${library}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${library}_runtime
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${library}_runtime
                NAMELINK_COMPONENT ${library}_development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${library}_development
        PUBLIC_HEADER DESTINATION ${headers_dir} COMPONENT ${library}_development)
    install(FILES ${install_HEADERS} DESTINATION ${headers_dir} COMPONENT ${library}_development)
endmacro()

macro(zel_install_cmake_package)
    set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/${library})
    install(
        EXPORT ${library}
        FILE ${library}Targets.cmake
        NAMESPACE zel::
        DESTINATION ${package_dir}
        COMPONENT ${library}_development)
    configure_package_config_file(
        ${PROJECT_SOURCE_DIR}/cmake/libraryConfig.cmake.in ${library}Config.cmake
        INSTALL_DESTINATION ${package_dir})
    write_basic_package_version_file(${library}ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
    install(
        FILES ${CMAKE_CURRENT_BINARY_DIR}/${library}Config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/${library}ConfigVersion.cmake
        DESTINATION ${package_dir}
        COMPONENT ${library}_development)
endmacro()

macro(zel_install_pkgconfig_file)
    set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
    # Relative, so that the installed tree can be moved.
    file(RELATIVE_PATH prefix_from_pkgconfig /prefix/${pkgconfig_dir} /prefix)
    list(TRANSFORM install_NEEDS PREPEND ", " OUTPUT_VARIABLE needed_modules)
    list(JOIN needed_modules "" needed_modules)
    list(TRANSFORM install_TARGETS PREPEND " -l" OUTPUT_VARIABLE linked_libraries)
    list(JOIN linked_libraries "" linked_libraries)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${library}.pc @ONLY)
    install(
        FILES ${CMAKE_CURRENT_BINARY_DIR}/${library}.pc
        DESTINATION ${pkgconfig_dir}
        COMPONENT ${library}_development)
endmacro()
