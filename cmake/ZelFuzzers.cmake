# zel_add_fuzzer(NAME OBJECTS)
#
# A fuzzer NAME of the source NAME.cpp, with the objects of a library, which are instrumented for coverage too.
function(zel_add_fuzzer name objects)
    add_executable(${name} ${name}.cpp)
    zel_configure_target(${name})
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/common_stable/fuzz
                                               ../tests/kit)
    target_link_libraries(${name} PRIVATE ${objects} IsoSpec::IsoSpec)
endfunction()
