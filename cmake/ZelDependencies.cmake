# Finds what the library and its surroundings need. Nothing is downloaded: a missing dependency stops
# the configure step with the name of the Debian package that holds it.

function(zel_require found what package)
    if(NOT ${found})
        message(FATAL_ERROR "${what} was not found. On Debian or Ubuntu: apt-get install ${package}")
    endif()
endfunction()

find_package(Qt6 6.4 QUIET COMPONENTS Core)
zel_require("${Qt6_FOUND}" "Qt 6.4 or newer (Core)" qt6-base-dev)

find_package(IsoSpec QUIET)
zel_require("${IsoSpec_FOUND}" "IsoSpec++ 2.2.1" libisospec++-dev)

if(ZEL_BUILD_TOOL)
    find_package(CLI11 QUIET CONFIG)
    zel_require("${CLI11_FOUND}" "CLI11" libcli11-dev)
endif()

if(ZEL_BUILD_TESTS)
    find_package(GTest QUIET CONFIG)
    zel_require("${GTest_FOUND}" "GoogleTest" libgtest-dev)
    find_package(rapidcheck QUIET CONFIG)
    zel_require("${rapidcheck_FOUND}" "RapidCheck" librapidcheck-dev)
endif()

if(ZEL_BUILD_BENCHMARKS)
    find_package(benchmark QUIET CONFIG)
    zel_require("${benchmark_FOUND}" "Google Benchmark" libbenchmark-dev)
endif()
