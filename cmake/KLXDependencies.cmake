# What the library proper is made with.
find_package(Boost 1.74 REQUIRED COMPONENTS filesystem regex thread)
find_package(LibXml2 REQUIRED)
find_package(OpenSSL REQUIRED COMPONENTS Crypto)
find_package(Threads REQUIRED)
find_package(jsoncpp REQUIRED)
