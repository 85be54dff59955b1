# Programs outside the tree that use the project, each built and run in a folder
# of its own below `scratch`. Sourced, not run. CXX and CXX_STANDARD choose the
# compiler and the language, BUILD_TYPE how all is built, STRICT whether warnings
# of the project's own sources are errors.
# shellcheck shell=bash

project=$PWD
consumers=$project/tests/packaging/consumers
vendor=$project/tests/packaging/vendor
board=$project/examples/board/board.xml
: "${CXX:=c++}" "${CXX_STANDARD:=17}" "${BUILD_TYPE:=Release}" "${STRICT:=ON}"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# quietly COMMAND...: shows what the command says only if it fails.
quietly() {
  if ! "$@" >"$scratch/log" 2>&1; then
    cat "$scratch/log"
    return 1
  fi
}

# build NAME SOURCE [OPTION...]: configures and builds in $scratch/NAME.
build() {
  local name=$1 source=$2
  shift 2
  quietly cmake -S "$source" -B "$scratch/$name" -G Ninja \
    -DCMAKE_BUILD_TYPE="$BUILD_TYPE" -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DCMAKE_UNITY_BUILD=ON \
    -DCMAKE_CXX_COMPILER="$CXX" -DCMAKE_CXX_STANDARD="$CXX_STANDARD" "$@"
  quietly cmake --build "$scratch/$name"
}

# install_project [OPTION...]: a build in `prefix`, which is not where
# it was installed to; without the dialog unless an option asks for it.
install_project() {
  rm -rf "$scratch/first" "$scratch/moved"
  build project "$project" -DBUILD_TESTING=OFF -DZELDEBUGDIALOG_DEVELOPER="$STRICT" \
    -DZELDEBUGDIALOG_DIALOG=OFF "$@"
  quietly cmake --install "$scratch/project" --prefix "$scratch/first"
  prefix=$scratch/moved
  mv "$scratch/first" "$prefix"
}

# a_project NAME: a copy in $scratch/NAME-project of one of the small projects
# that docs/packaging.md shows, with the sources that it names.
a_project() {
  local copy=$scratch/$1-project
  mkdir -p "$copy"
  if [ -d "$consumers/$1" ]; then cp "$consumers/$1/CMakeLists.txt" "$copy"; fi
  cp "$consumers/dialog.cpp" "$consumers/OneLumacore.h" "$copy"
  cp "$consumers/ModelDesign.cpp" "$copy/board.cpp"
}

# watched NAME: a copy that also watches that nothing leaks into the project.
watched() {
  a_project "$1"
  say "include($consumers/NothingLeaks.cmake)" >>"$scratch/$1-project/CMakeLists.txt"
}

find_package_consumer() {
  say "-- find_package: $CXX, C++$CXX_STANDARD"
  build find_package "$consumers/find_package" -DCMAKE_PREFIX_PATH="$prefix"
  "$scratch/find_package/dialog"
  "$scratch/find_package/model_dialog"
  "$scratch/find_package/session"
  "$scratch/find_package/project"
  "$scratch/find_package/c_interface" "$board"
}

# The dialog's pages in a window of another program; without a board it ends with 2.
dialog_consumer() {
  local status=0
  say "-- the dialog's pages: $CXX, C++$CXX_STANDARD"
  build embedded_dialog "$project/examples/embedded_dialog" -DCMAKE_PREFIX_PATH="$prefix"
  QT_QPA_PLATFORM=offscreen "$scratch/embedded_dialog/embedded_dialog" || status=$?
  [ "$status" -eq 2 ]

  say "-- the dialog where it can be had"
  build optional_dialog "$consumers/optional_dialog" -DCMAKE_PREFIX_PATH="$prefix" -DWANTED=ON
  build without_qt "$consumers/optional_dialog" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_DISABLE_FIND_PACKAGE_Qt6=ON
}

pkg_config_consumer() {
  local flags=() all=() libraries
  say "-- pkg-config: $CXX, C++$CXX_STANDARD"
  libraries=$(dirname "$(find "$prefix" -name pkgconfig -type d)")
  export PKG_CONFIG_PATH="$libraries/pkgconfig"
  # As the page says it; each package tells what else it takes.
  a_project pkg_config
  fenced_block '<!-- pkg-config -->' docs/packaging.md >"$scratch/pkg_config-project/build"
  (cd "$scratch/pkg_config-project" && bash -eu build)
  LD_LIBRARY_PATH=$libraries "$scratch/pkg_config-project/dialog"

  read -ra flags <<<"$(pkg-config --cflags --libs zeldebugdialog-design-model)"
  all=("-std=c++$CXX_STANDARD" -Wall -Wextra -Wpedantic -Werror "-Wl,-rpath,$libraries")
  flags+=("${all[@]}")
  mkdir -p "$scratch/pkg_config"
  "$CXX" "$consumers/dialog.cpp" "$consumers/ModelDesign.cpp" "${flags[@]}" \
    -o "$scratch/pkg_config/dialog"
  "$scratch/pkg_config/dialog"

  say "-- README's example"
  fenced_block '```cpp' README.md >"$scratch/pkg_config/readme.cpp"
  "$CXX" "$scratch/pkg_config/readme.cpp" "${flags[@]}" -o "$scratch/pkg_config/readme"
  "$scratch/pkg_config/readme"

  read -ra flags <<<"$(pkg-config --cflags --libs zeldebugdialog-configuration-model)"
  "$CXX" "$consumers/session.cpp" "$consumers/OwnDesign.cpp" "${flags[@]}" "${all[@]}" \
    -o "$scratch/pkg_config/session"
  "$scratch/pkg_config/session"

  read -ra flags <<<"$(pkg-config --cflags --libs zeldebugdialog-project-file)"
  "$CXX" "$consumers/project.cpp" "$consumers/OwnDesign.cpp" "${flags[@]}" "${all[@]}" \
    -o "$scratch/pkg_config/project"
  "$scratch/pkg_config/project"

  # As C, by a compiler of C.
  read -ra flags <<<"$(pkg-config --cflags --libs zeldebugdialog-c)"
  "${CC:-cc}" -std=c99 -pedantic -Wall -Wextra -Werror "$project/tests/c_interface/use.c" \
    -DZELDEBUGDIALOG_VERSION="\"$(pkg-config --modversion zeldebugdialog-c)\"" \
    "${flags[@]}" "-Wl,-rpath,$libraries" -o "$scratch/pkg_config/c_interface"
  "$scratch/pkg_config/c_interface" "$board"
}

add_subdirectory_consumer() {
  say "-- add_subdirectory: $CXX, C++$CXX_STANDARD"
  watched add_subdirectory
  ln -s "$project" "$scratch/add_subdirectory-project/ZelDebugDialog"
  build add_subdirectory "$scratch/add_subdirectory-project"
  "$scratch/add_subdirectory/dialog"
  stands_alone add_subdirectory
}

fetch_content_consumer() {
  say "-- FetchContent: $CXX, C++$CXX_STANDARD"
  watched fetch_content
  build fetch_content "$scratch/fetch_content-project" -DZELDEBUGDIALOG_REPOSITORY="$project"
  "$scratch/fetch_content/dialog"
  stands_alone fetch_content
}

# stands_alone NAME: what a consumer installs is its own program, which runs
# where nothing else of the build is left.
stands_alone() {
  local installed
  quietly cmake --install "$scratch/$1" --prefix "$scratch/$1-prefix"
  rm -r "${scratch:?}/$1"
  installed=$(cd "$scratch/$1-prefix" && find . ! -type d)
  if [ "$installed" != ./bin/dialog ]; then
    say "install rules came in: $installed"
    return 1
  fi
  "$scratch/$1-prefix/bin/dialog"
}

# The engine and the configuration model against a vendor's headers and library
# in place of our own, named as seen from the folder that cmake is called in.
# Programs that use them name neither.
vendor_consumer() {
  local flags=() libraries
  say "-- a vendor's platform: $CXX, C++$CXX_STANDARD"
  build vendor "$vendor"
  # CMake installs no package that leads into its own source tree.
  cp -r "$vendor/include" "$scratch/vendor/include"
  (
    cd "$scratch" || exit
    build vendor-engine "$project" -DBUILD_TESTING=OFF -DZELDEBUGDIALOG_DEVELOPER="$STRICT" \
      -DCMAKE_INSTALL_PREFIX="$scratch/vendor-prefix" \
      -DZELDEBUGDIALOG_TOOL=OFF -DZELDEBUGDIALOG_C_INTERFACE=OFF -DZELDEBUGDIALOG_DIALOG=OFF \
      -DZELDEBUGDIALOG_PLATFORM_INCLUDE_DIR=vendor/include \
      -DZELDEBUGDIALOG_PLATFORM_LIBRARIES=vendor/libVendorPlatform.so
  )
  quietly cmake --install "$scratch/vendor-engine"
  a_project vendor_platform
  build vendor-consumer "$scratch/vendor_platform-project" \
    -DCMAKE_PREFIX_PATH="$scratch/vendor-prefix"
  "$scratch/vendor-consumer/dialog" 2>"$scratch/vendor-messages"
  cat "$scratch/vendor-messages"
  grep -q "^vendor's log: UNKNOWN Parameter" "$scratch/vendor-messages"

  libraries=$(dirname "$(find "$scratch/vendor-prefix" -name pkgconfig -type d)")
  read -ra flags <<<"$(PKG_CONFIG_PATH="$libraries/pkgconfig" pkg-config --cflags --libs zeldebugdialog)"
  "$CXX" "-std=c++$CXX_STANDARD" "$consumers/dialog.cpp" "${flags[@]}" \
    "-Wl,-rpath,$libraries:$scratch/vendor" -o "$scratch/vendor-pkg-config"
  "$scratch/vendor-pkg-config"
}
