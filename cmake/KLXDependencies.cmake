# What the library proper is made with.
find_package(Boost 1.74 REQUIRED COMPONENTS filesystem regex thread)
find_package(LibXml2 REQUIRED)
find_package(OpenSSL REQUIRED COMPONENTS Crypto)
find_package(Threads REQUIRED)
find_package(jsoncpp REQUIRED)
find_package(PkgConfig REQUIRED)
pkg_check_modules(V4L2 REQUIRED IMPORTED_TARGET libv4l2)
