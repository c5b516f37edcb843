# Finds the IsoSpec++ library and gives the target IsoSpec::IsoSpec.
# Headers are included as <IsoSpec++/isoSpec++.h>.

find_path(IsoSpec_INCLUDE_DIR NAMES IsoSpec++/isoSpec++.h)
find_library(IsoSpec_LIBRARY NAMES IsoSpec++)

find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
    pkg_check_modules(PC_IsoSpec QUIET libisospec++)
    set(IsoSpec_VERSION ${PC_IsoSpec_VERSION})
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(
    IsoSpec
    REQUIRED_VARS IsoSpec_LIBRARY IsoSpec_INCLUDE_DIR
    VERSION_VAR IsoSpec_VERSION)

if(IsoSpec_FOUND AND NOT TARGET IsoSpec::IsoSpec)
    add_library(IsoSpec::IsoSpec UNKNOWN IMPORTED)
    set_target_properties(
        IsoSpec::IsoSpec PROPERTIES IMPORTED_LOCATION "${IsoSpec_LIBRARY}"
                                    INTERFACE_INCLUDE_DIRECTORIES "${IsoSpec_INCLUDE_DIR}")
endif()

mark_as_advanced(IsoSpec_INCLUDE_DIR IsoSpec_LIBRARY)
