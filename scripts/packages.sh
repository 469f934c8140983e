# Debian packages by purpose, and how they get onto a machine. Sourced by the other scripts.

packages_build="g++ cmake ninja-build pkg-config git libxml2-dev libxslt1-dev libcurl4-openssl-dev
  libutf8proc-dev rapidjson-dev libcli11-dev libboost-dev libssl-dev libsqlite3-dev ca-certificates"
packages_python="python3-dev python3-venv python3-pip python3-setuptools python3-wheel mypy"
packages_distributed="python3-distributed parallel"
packages_test="python3-dev libgtest-dev python3"
packages_bench="libbenchmark-dev python3 python3-lxml valgrind xsltproc"
packages_torture="valgrind strace openssl time tinyproxy squid"
packages_windows="g++-mingw-w64-x86-64-posix wine wine64 openssl dpkg-dev xz-utils patch cmake ninja-build rapidjson-dev"
packages_pages="chromium poppler-utils fonts-dejavu-core python3"
packages_check="ccache clang-14 clang-tidy-14 clang-format-14 libclang-rt-14-dev
  mandoc zsh fish python3-jsonschema"

# One compiler cache for every build folder, where there is one.
export CCACHE_BASEDIR=$PWD CCACHE_NOHASHDIR=1 CCACHE_SLOPPINESS=pch_defines,time_macros

# Installs those of the named packages that are missing.
need_packages() {
  local missing=()
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  echo "Installing ${missing[*]} ..." >&2
  local as_root=()
  [ "$(id -u)" -eq 0 ] || as_root=(sudo)
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq >&2
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq \
    --no-install-recommends "${missing[@]}" >&2
}

# Configures and builds a preset, quietly unless it fails: build_preset PRESET [TARGET...], with
# further options for the configuration in the array configure_options.
build_preset() {
  local preset=$1 log
  shift
  log=$(mktemp)
  echo "Building ($preset) ..." >&2
  if ! { cmake --preset "$preset" ${configure_options[@]+"${configure_options[@]}"} &&
         cmake --build --preset "$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
    cat "$log" >&2
    rm -f "$log"
    return 1
  fi
  grep -E 'warning:' "$log" >&2 || true
  rm -f "$log"
}

# The same with each folder's files compiled as one, which takes half the time; as they are where that
# fails, which it does where two of them give different things the same name.
build_preset_as_one() {
  local given=(${configure_options[@]+"${configure_options[@]}"})
  configure_options=("${given[@]}" -DCMAKE_UNITY_BUILD=ON)
  build_preset "$@" 2>/dev/null && return
  configure_options=("${given[@]}" -DCMAKE_UNITY_BUILD=OFF)
  build_preset "$@"
}
