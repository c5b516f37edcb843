# The Debian packages: of each installed library one that programs run with and one that they are built with, and the
# command line.

set(CPACK_GENERATOR DEB)
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_CONTACT
    "zel_chemical_model maintainers <maintainers@users.noreply.c-seed-7f0531cb.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has one of its own
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON) # whatever the umask of the sources was
set(CPACK_DEBIAN_PACKAGE_SOURCE zel-chemical-model)
# A program runs with every later release of the same major version.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/packaging/AddDocuments.cmake)
set(CPACK_COMPONENTS_ALL)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS)

# zel_package(PART PACKAGE SECTION KIND) sets what both packages of a library have.
macro(zel_package part package section kind)
    set(component ${library}_${part})
    list(APPEND CPACK_COMPONENTS_ALL ${component})
    list(TRANSFORM ${library}_NEEDS APPEND _${part} OUTPUT_VARIABLE needed_components)
    string(TOUPPER ${component} component)
    set(CPACK_COMPONENT_${component}_DEPENDS ${needed_components})
    set(CPACK_DEBIAN_${component}_PACKAGE_NAME ${package})
    set(CPACK_DEBIAN_${component}_PACKAGE_SECTION ${section})
    set(CPACK_DEBIAN_${component}_DESCRIPTION
        "${${library}_SUMMARY} (${kind})\n${${library}_DESCRIPTION}")
endmacro()

foreach(library IN LISTS zel_libraries)
    string(REPLACE _ - name lib${library})
    # Where those look that are linked with it; the package that holds it is named by its component.
    get_target_property(library_dir ${library} BINARY_DIR)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${library_dir})

    zel_package(runtime ${name}${PROJECT_VERSION_MAJOR} libs "shared library")
    set(CPACK_DEBIAN_${component}_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_${component}_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)

    zel_package(development ${name}-dev libdevel "development files")
    list(APPEND CPACK_COMPONENT_${component}_DEPENDS ${library}_runtime)
    set(CPACK_DEBIAN_${component}_PACKAGE_DEPENDS qt6-base-dev)
endforeach()

if(TARGET zel)
    list(APPEND CPACK_COMPONENTS_ALL zel)
    set(CPACK_COMPONENT_ZEL_DEPENDS zel_ion_model_runtime)
    set(CPACK_DEBIAN_ZEL_PACKAGE_NAME zel)
    set(CPACK_DEBIAN_ZEL_PACKAGE_SECTION science)
    set(CPACK_DEBIAN_ZEL_PACKAGE_SHLIBDEPS ON)
    set(CPACK_DEBIAN_ZEL_DESCRIPTION
        "Molecules as a mass spectrometer sees them (command line)
Reads peptides, oligonucleotides, glycans and formulas, weighs them, cuts
them into pieces and fragment ions, computes isotope patterns, and finds
peptides in spectra.")
endif()

include(CPack)
