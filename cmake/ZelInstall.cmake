# Installing, the CMake package, the pkg-config file and the Debian packages.

include(CMakePackageConfigHelpers)

set(headers_dir ${CMAKE_INSTALL_INCLUDEDIR}/zel_chemical_model)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/zel_chemical_model)

install(
    TARGETS zel_chemical_model zel_common_stable
    EXPORT zel_chemical_model
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    PUBLIC_HEADER DESTINATION ${headers_dir} COMPONENT development)
install(
    FILES ${PROJECT_SOURCE_DIR}/common_stable/src/Error.h
          ${PROJECT_BINARY_DIR}/common_stable/CommonStableExport.h
          ${PROJECT_BINARY_DIR}/chemical_model/include/zel_chemical_model/ChemicalModelExport.h
    DESTINATION ${headers_dir}
    COMPONENT development)

install(
    EXPORT zel_chemical_model
    FILE zel_chemical_modelTargets.cmake
    NAMESPACE zel::
    DESTINATION ${package_dir}
    COMPONENT development)
configure_package_config_file(
    ${PROJECT_SOURCE_DIR}/cmake/zel_chemical_modelConfig.cmake.in zel_chemical_modelConfig.cmake
    INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(zel_chemical_modelConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
# Relative, so that the installed tree can be moved.
file(RELATIVE_PATH prefix_from_pkgconfig /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
configure_file(${PROJECT_SOURCE_DIR}/cmake/zel_chemical_model.pc.in zel_chemical_model.pc @ONLY)
install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/zel_chemical_modelConfig.cmake
          ${CMAKE_CURRENT_BINARY_DIR}/zel_chemical_modelConfigVersion.cmake
    DESTINATION ${package_dir}
    COMPONENT development)
install(
    FILES ${CMAKE_CURRENT_BINARY_DIR}/zel_chemical_model.pc
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT development)

if(PROJECT_IS_TOP_LEVEL)
    set(CPACK_GENERATOR DEB)
    set(CPACK_STRIP_FILES ON)
    set(CPACK_PACKAGE_CONTACT "zel_chemical_model maintainers <maintainers@localhost>")
    set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
    set(CPACK_DEB_COMPONENT_INSTALL ON)
    set(CPACK_COMPONENTS_ALL runtime development)
    set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
    set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/common_stable)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libzel-chemical-model${PROJECT_VERSION_MAJOR})
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/triggers)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzel-chemical-model-dev)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
    set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
        "libzel-chemical-model${PROJECT_VERSION_MAJOR} (= ${PROJECT_VERSION}), qt6-base-dev")
    include(CPack)
endif()
