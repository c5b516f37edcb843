# What every program of tests has.

include(GoogleTest)
include(ZelTargets)

# zel_configure_tests(TARGET)
function(zel_configure_tests target)
    zel_configure_target(${target})
    zel_unite_rooms(${target})
    # What is optimised is the library: to optimise the tests takes longer than to optimise what they test.
    target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
    target_include_directories(${target} PRIVATE ${PROJECT_SOURCE_DIR}/common_stable/tests/kit)
    target_link_libraries(${target} PRIVATE GTest::gtest_main)
endfunction()

# What every test includes takes longer to read than most tests take to compile.
function(zel_precompile_test_headers target)
    target_sources(${target} PRIVATE ${PROJECT_SOURCE_DIR}/common_stable/tests/kit/PropertySeed.cpp)
    target_link_libraries(${target} PRIVATE rapidcheck rapidcheck_gtest)
    target_precompile_headers(${target} PRIVATE <gtest/gtest.h> <rapidcheck/gtest.h>)
endfunction()
