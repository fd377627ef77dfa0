# usage: consume_by_pkg_config.sh COMPILER PKG-CONFIG LIBRARY-FOLDER PROGRAM
# Builds the consumer with one compiler call, as pkg-config tells, and runs it.
set -eu
compiler=$1 pkg_config=$2 libraries=$3 program=$4

export PKG_CONFIG_PATH="$libraries/pkgconfig"
flags=$("$pkg_config" --cflags --libs KLXDeviceInfo)
# shellcheck disable=SC2086  # flags are several words
"$compiler" -std=c++17 "$(dirname "$0")/consumer/main.cpp" $flags -o "$program"
LD_LIBRARY_PATH=$libraries exec "$program"
