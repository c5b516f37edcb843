# The compile options that every target of this project shares.

include(CheckIPOSupported)
include(GenerateExportHeader)

# Of g++ and of every clang; other compilers keep their own defaults.
set(zel_warnings
    -Wall
    -Wextra
    -Wpedantic
    -Wconversion
    -Wsign-conversion
    -Wshadow
    -Wnon-virtual-dtor
    -Woverloaded-virtual
    -Wold-style-cast)

# Sums are promised to the last bit, also where the processor has fused multiply-add.
set(zel_compile_options -ffp-contract=off)
# Sources that are compiled as one see each other's names, which the compilers would warn of.
if(NOT ZEL_UNITE_ROOMS)
    list(APPEND zel_compile_options ${zel_warnings})
endif()

# Warnings, sanitizers and the definitions that keep Qt code strict. PRIVATE to the target: what a
# user's code is compiled with is the user's choice.
function(zel_configure_target target)
    set_target_properties(
        ${target}
        PROPERTIES CXX_EXTENSIONS OFF
                   CXX_VISIBILITY_PRESET hidden
                   VISIBILITY_INLINES_HIDDEN ON
                   COMPILE_WARNING_AS_ERROR ${ZEL_WARNINGS_AS_ERRORS})
    target_compile_options(
        ${target}
        PRIVATE "$<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:${zel_compile_options}>")
    target_compile_definitions(
        ${target}
        PRIVATE QT_NO_CAST_FROM_ASCII
                QT_NO_CAST_TO_ASCII
                QT_NO_CAST_FROM_BYTEARRAY
                QT_NO_KEYWORDS
                QT_NO_FOREACH
                QT_USE_QSTRINGBUILDER
                QT_STRICT_ITERATORS)
    if(ZEL_SANITIZERS)
        target_compile_options(${target} PRIVATE -fsanitize=${ZEL_SANITIZERS}
                                                 -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=${ZEL_SANITIZERS})
    endif()
endfunction()

# Compiles the sources of one room as one where ZEL_UNITE_ROOMS asks for it: most of the time goes into headers
# that all of them include. What unnamed namespaces hold has to have different names within a room.
function(zel_unite_rooms target)
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
        cmake_path(GET source PARENT_PATH folder)
        cmake_path(GET folder FILENAME room)
        if(room STREQUAL "")
            set(room ${target})
        endif()
        set_source_files_properties(${source} PROPERTIES UNITY_GROUP ${room})
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ${ZEL_UNITE_ROOMS} UNITY_BUILD_MODE GROUP)
endfunction()

# g++ keeps calls between exported functions replaceable at run time unless told otherwise, which
# triples their cost (measured: 3.9 against 1.35 ns a call). clang does so by default.
function(zel_bind_calls_inside target)
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fno-semantic-interposition>)
endfunction()

# zel_add_library(NAME EXPORT_HEADER HEADER SOURCES ... PUBLIC_LIBRARIES ... PRIVATE_LIBRARIES ...)
#
# A shared library zel_NAME, as zel::NAME. Its sources are compiled once, as an object library
# zel_NAME_objects that the tests of its internals are linked with as well. The public headers are what
# stands at the top of src; everything else is in a room.
function(zel_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORT_HEADER"
                          "SOURCES;FURTHER_HEADERS;PUBLIC_LIBRARIES;PRIVATE_LIBRARIES")
    set(library zel_${name})
    set(objects ${library}_objects)
    file(GLOB public_headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/src/*.h)

    add_library(${objects} OBJECT ${public_headers} ${arg_SOURCES})
    add_library(${library} SHARED)
    add_library(zel::${name} ALIAS ${library})

    # In the tree as installed, a header is also found as <zel_NAME/HEADER>, which no file of a user's
    # can come before.
    set(include_dir ${CMAKE_CURRENT_BINARY_DIR}/include)
    foreach(header IN LISTS public_headers arg_FURTHER_HEADERS)
        cmake_path(GET header FILENAME file_name)
        file(CONFIGURE OUTPUT ${include_dir}/${library}/${file_name}
             CONTENT "#include \"${header}\"\n")
    endforeach()
    generate_export_header(${library} BASE_NAME ${library}
                           EXPORT_FILE_NAME ${include_dir}/${library}/${arg_EXPORT_HEADER})

    zel_configure_target(${objects})
    zel_bind_calls_inside(${objects})
    zel_unite_rooms(${objects})
    set_target_properties(${objects} PROPERTIES AUTOMOC ON POSITION_INDEPENDENT_CODE ON)
    target_compile_definitions(${objects} PUBLIC ${library}_EXPORTS)
    target_compile_features(${objects} PUBLIC cxx_std_20)
    target_include_directories(${objects} PUBLIC src ${include_dir})
    target_link_libraries(${objects} PUBLIC ${arg_PUBLIC_LIBRARIES} PRIVATE ${arg_PRIVATE_LIBRARIES})
    if(ZEL_BUILD_FUZZERS)
        # The fuzzers steer by what is reached inside the library.
        target_compile_options(${objects} PRIVATE -fsanitize=fuzzer-no-link)
    endif()

    zel_configure_target(${library})
    target_link_libraries(
        ${library}
        PUBLIC ${arg_PUBLIC_LIBRARIES}
        PRIVATE $<BUILD_INTERFACE:${objects}> ${arg_PRIVATE_LIBRARIES})
    target_compile_features(${library} PUBLIC cxx_std_20)
    target_include_directories(
        ${library}
        PUBLIC $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/src>
               $<BUILD_INTERFACE:${include_dir}>
               $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${library}>
               $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    set_target_properties(
        ${library}
        PROPERTIES EXPORT_NAME ${name}
                   INSTALL_RPATH "$<IF:$<PLATFORM_ID:Darwin>,@loader_path,$ORIGIN>"
                   VERSION ${PROJECT_VERSION}
                   SOVERSION ${PROJECT_VERSION_MAJOR} PUBLIC_HEADER "${public_headers}")
endfunction()
