# What the scripts of this folder share. Sourced, not run; all of them work in
# the project's folder.
# shellcheck shell=bash

cd "$(dirname "${BASH_SOURCE[0]}")/.." || exit

say() { printf '%s\n' "$*"; }

die() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

# help_line TEXT [ARGUMENT...]: answers --help with TEXT; any other argument is
# wrong use.
help_line() {
  local text=$1
  shift
  [ $# -gt 0 ] || return 0
  case $1 in
  -h | --help)
    say "$text"
    exit 0
    ;;
  esac
  printf '%s\n' "$text" >&2
  exit 2
}

# packages_of LIST...: the names in package lists, without their comments.
packages_of() { sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$@"; }

package_installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# need_packages LIST...: installs what is missing of the listed packages.
need_packages() {
  local package missing=() as_root=()
  if ! command -v dpkg-query >/dev/null; then
    say "No Debian here; these packages or their like are needed:"
    packages_of "$@" | paste -sd ' '
    return 0
  fi
  for package in $(packages_of "$@"); do
    package_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0

  say "Missing packages: ${missing[*]}"
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || die "not root and no sudo: install them first"
    say "Installing them through sudo."
    as_root=(sudo)
  else
    say "Installing them."
  fi
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# fenced_block MARK FILE: what stands between the first fences at or behind the
# line MARK of a Markdown file.
fenced_block() {
  awk -v mark="$1" '
    $0 == mark { marked = 1 }
    marked && /^```/ { if (inside) exit; inside = 1; next }
    inside' "$2"
}
