# 64-bit ARM.
set(klx_target_processor aarch64)
set(klx_target_architecture arm64)
set(klx_target_triplet aarch64-linux-gnu)
include("${CMAKE_CURRENT_LIST_DIR}/toolchain-debian.cmake")
