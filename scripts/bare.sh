# A bare Debian 12 to try things in. Sourced, not run; needs root.
# shellcheck shell=bash

# make_bare: a new one in `bare`, made by debootstrap, or copied from the folder
# in DEBIAN_BASE; it is removed when the script ends. Packages come from where
# this machine has them from.
make_bare() {
  [ "$(id -u)" -eq 0 ] || die "a bare system is for root to make"
  bare=$(mktemp -d)
  trap 'rm -rf --one-file-system "$bare"' EXIT
  chmod 755 "$bare"
  if [ -n "${DEBIAN_BASE:-}" ]; then
    cp -a "$DEBIAN_BASE/." "$bare"
  else
    debootstrap --variant=minbase bookworm "$bare" >"$bare.log" || {
      tail "$bare.log"
      return 1
    }
    rm -f "$bare.log"
  fi
  rm -rf "$bare"/etc/apt/sources.list*
  cp -a /etc/apt/sources.list* /etc/apt/apt.conf.d "$bare/etc/apt/"
  cp -L /etc/resolv.conf /etc/hosts "$bare/etc/"
}

# in_bare: runs the script on standard input inside.
in_bare() {
  chroot "$bare" env -i HOME=/home PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
    DEBIAN_FRONTEND=noninteractive ${http_proxy:+http_proxy="$http_proxy"} \
    bash -eu -o pipefail
}
