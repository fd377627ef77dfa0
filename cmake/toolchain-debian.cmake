# Building with Debian's compiler for another processor. The file that includes this one names the
# processor, its architecture (as Debian calls it) and its triplet; './dev' makes the sysroot.

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR "${klx_target_processor}")
set(CMAKE_C_COMPILER "${klx_target_triplet}-gcc")
set(CMAKE_CXX_COMPILER "${klx_target_triplet}-g++")

get_filename_component(CMAKE_SYSROOT
    "${CMAKE_CURRENT_LIST_DIR}/../build/sysroot/${klx_target_architecture}" ABSOLUTE)
if(NOT EXISTS "${CMAKE_SYSROOT}")
    message(FATAL_ERROR
        "There is no ${CMAKE_SYSROOT}; ./dev test-${klx_target_architecture} makes it")
endif()
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(ENV{PKG_CONFIG_SYSROOT_DIR} "${CMAKE_SYSROOT}")
set(ENV{PKG_CONFIG_LIBDIR}
    "${CMAKE_SYSROOT}/usr/lib/${klx_target_triplet}/pkgconfig:${CMAKE_SYSROOT}/usr/share/pkgconfig")

set(CMAKE_CROSSCOMPILING_EMULATOR "qemu-${klx_target_processor};-L;${CMAKE_SYSROOT}")
