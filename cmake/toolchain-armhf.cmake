# 32-bit ARM with hardware floating point, the processor of most sets.
set(klx_target_processor arm)
set(klx_target_architecture armhf)
set(klx_target_triplet arm-linux-gnueabihf)
# Nothing here was built before GCC 7, whose change of this processor's calling convention it tells.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
include("${CMAKE_CURRENT_LIST_DIR}/toolchain-debian.cmake")
