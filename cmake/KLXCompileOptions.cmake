# Every target of the project links klx_options: language level, warnings, sanitizers. What is loaded
# into programs that are not ours links klx_warnings alone.

add_library(klx_warnings INTERFACE)
target_compile_features(klx_warnings INTERFACE cxx_std_17)
target_compile_options(klx_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
    # Log lines carry base names; keep the build folder's own path out of the binaries, too.
    "-ffile-prefix-map=${PROJECT_SOURCE_DIR}/=")
# Large file systems and times after 2037 on 32-bit machines, too.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    target_compile_definitions(klx_warnings INTERFACE _FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()

add_library(klx_options INTERFACE)
target_link_libraries(klx_options INTERFACE klx_warnings)

set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(KLX_SANITIZE)
    target_compile_options(klx_options INTERFACE
        "-fsanitize=${KLX_SANITIZE}" -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(klx_options INTERFACE "-fsanitize=${KLX_SANITIZE}")
endif()

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
