# Sourced by the scripts that build: installs what is missing from Debian's packages and builds.
# shellcheck shell=bash

packages_build=(
  ccache cmake g++ ninja-build pkg-config
  qt6-base-dev qt6-declarative-dev qt6-declarative-dev-tools
  libcurl4-openssl-dev libfontconfig-dev libglib2.0-dev libicu-dev liblilv-dev libmicrohttpd-dev
  libplist-dev libsqlite3-dev libssl-dev lv2-dev
)
packages_panel=(
  qml6-module-qtqml qml6-module-qtqml-models qml6-module-qtqml-workerscript qml6-module-qtquick
  qml6-module-qtquick-controls qml6-module-qtquick-layouts qml6-module-qtquick-templates
  qml6-module-qtquick-window
  fonts-inter fonts-material-design-icons-iconfont
  ca-certificates dbus
)
packages_test=(clang-format git libglib2.0-bin libgmock-dev libgtest-dev mpv openssl
  qml6-module-qttest)
packages_fuzz=(clang-19 libclang-rt-19-dev llvm-19)

# Installs those of the packages named that are not there yet, asking once.
need() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${db:Status-Abbrev}' "$package" 2>/dev/null | grep -q '^ii' || missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  if ! command -v apt-get >/dev/null; then
    echo "These Debian packages, or what your system calls them, are needed: ${missing[*]}" >&2
    return 1
  fi
  local as_root=()
  if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
      echo "Run this as root, there is no sudo here: apt-get install ${missing[*]}" >&2
      return 1
    fi
    as_root=(sudo)
    echo "These Debian packages are missing and will be installed with sudo: ${missing[*]}"
  fi
  "${as_root[@]}" apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -q -y --no-install-recommends "${missing[@]}"
}

# build PRESET [TARGET...]: configures the preset and builds the targets, or everything.
build() {
  local preset=$1
  shift
  cmake --preset "$preset"
  cmake --build --preset "$preset" ${1:+--target "$@"}
}
