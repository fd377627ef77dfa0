# usage: cmake -Dbuild=FOLDER -Dprefix=FOLDER -Dstate=FOLDER -P install.cmake
# Installs a build anew and moves the tree to where the prefix says.

set(first "${prefix}-from")
file(REMOVE_RECURSE "${first}" "${prefix}" "${state}")
execute_process(
    COMMAND "${CMAKE_COMMAND}" --install "${build}" --prefix "${first}"
    COMMAND_ERROR_IS_FATAL ANY)
file(RENAME "${first}" "${prefix}")
file(MAKE_DIRECTORY "${state}")
