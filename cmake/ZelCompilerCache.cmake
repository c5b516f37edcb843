# Compiles through ccache where it is there and no other launcher is named, by -DCMAKE_CXX_COMPILER_LAUNCHER or
# the environment. Nothing depends on it: what it hands out is what the compiler wrote for the same text. The
# presets let it keep what is compiled with precompiled headers, as the tests are.

option(ZEL_COMPILER_CACHE "Compile through ccache where it is there" ON)

if(ZEL_COMPILER_CACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(ZEL_CCACHE ccache)
    mark_as_advanced(ZEL_CCACHE)
    if(ZEL_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${ZEL_CCACHE})
    endif()
endif()
