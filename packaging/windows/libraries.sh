# The libraries of the program, built for Windows into the folder $prefix. Each is built once.

# done_mark NAME: the file that says that it is built.
done_mark() { printf '%s' "$work/$1.done"; }

# module NAME SOURCE [OPTION...]: a module of the toolkit.
module() {
  local name=$1 folder=$2
  shift 2
  say "building $name for Windows, which takes a while (see $work/$name.log)"
  {
    cmake -G Ninja -S "$folder" -B "$work/build/$name" -D CMAKE_BUILD_TYPE=Release -D CMAKE_INSTALL_PREFIX="$prefix" \
      -D QT_BUILD_EXAMPLES=OFF -D QT_BUILD_TESTS=OFF "$@" &&
      cmake --build "$work/build/$name" -j "$(nproc)" && cmake --install "$work/build/$name" --strip
  } > "$work/$name.log" 2>&1 || { tail -20 "$work/$name.log"; fail "$name cannot be built"; }
  touch "$(done_mark "$name")"
}

# What the program needs and no more: no library of the host, no drawing by the graphics card.
build_qt6-base() {
  local feature off=() host
  for feature in network sql dbus xml concurrent vulkan icu glib zstd pkg_config \
    system_{zlib,pcre2,doubleconversion,freetype,harfbuzz,png,jpeg}; do off+=(-D "FEATURE_$feature=OFF"); done
  # The tablets' headers are not in the sources. The older drawing library stays: without it two others do not link.
  off+=(-D FEATURE_tabletevent=OFF -D FEATURE_direct2d1_1=OFF)
  host=$(dpkg -L qt6-base-dev | sed -n 's#/Qt6/Qt6Config.cmake$##p')
  module qt6-base "$1" -D CMAKE_TOOLCHAIN_FILE="$PWD/cmake/mingw-w64.cmake" -D QT_HOST_PATH=/usr \
    -D QT_HOST_PATH_CMAKE_DIR="$host" -D INPUT_opengl=no "${off[@]}"
}

build_qt6-serialport() { module qt6-serialport "$1" -D CMAKE_TOOLCHAIN_FILE="$toolchain"; }
build_qt6-svg() { module qt6-svg "$1" -D CMAKE_TOOLCHAIN_FILE="$toolchain"; }

# One source file, which its own tools put together here; the same goes into every program that needs it.
build_sqlite3() {
  say "building sqlite3 for Windows"
  mkdir -p "$work/build/sqlite3" "$prefix/include" "$prefix/lib"
  (cd "$work/build/sqlite3" && sh "$1/configure" --disable-readline && make sqlite3.c sqlite3.h &&
    "$compiler-gcc-posix" -O2 -D SQLITE_OMIT_LOAD_EXTENSION -c sqlite3.c -o sqlite3.o &&
    "$compiler-ar" rcs "$prefix/lib/libsqlite3.a" sqlite3.o && cp sqlite3.h "$prefix/include") \
    > "$work/sqlite3.log" 2>&1 || { tail -20 "$work/sqlite3.log"; fail "sqlite3 cannot be built"; }
  touch "$(done_mark sqlite3)"
}

# headers_only NAME MODULE: lets the program be compiled with the host's headers of a module that is not to be had.
headers_only() {
  local folder=$work/headers_only/Qt6$2 host
  host=$(dpkg -L "$1-dev" | sed -n "\\#/qt6/Qt$2\$#p")
  mkdir -p "$folder/include"
  ln -sfn "$host" "$folder/include/Qt$2"
  cat > "$folder/Qt6$2Config.cmake" << EOF
add_library(Qt6::$2 INTERFACE IMPORTED)
target_include_directories(Qt6::$2 INTERFACE "$folder/include" "$folder/include/Qt$2")
target_link_libraries(Qt6::$2 INTERFACE Qt6::Core)
EOF
  echo 'set(PACKAGE_VERSION_COMPATIBLE TRUE)' > "$folder/Qt6$2ConfigVersion.cmake"
  options+=(-D "Qt6$2_DIR=$folder")
}
