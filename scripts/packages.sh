# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# shellcheck disable=SC2034 # the lists are for the scripts that source this one
# Sourced by ./run, ./test and .ci/run: the Debian packages that a job needs, and how they get here.

build_packages=(
    g++ cmake ninja-build pkgconf
    qtbase5-dev qtbase5-private-dev qttranslations5-l10n libqt5webkit5-dev qtsystems5-dev
    libcpp-httplib-dev libctemplate-dev libsqlitecpp-dev libcli11-dev libutfcpp-dev libssl-dev
    libglib2.0-dev python3-dbus python3-gi
    dbus-daemon dbus-bin at-spi2-core xvfb fonts-liberation2 fonts-dejavu-core
)
# What a run on a machine without a display needs on top.
display_packages=(xvfb)
format_packages=(clang-format)
# What looks at the Debian packages.
package_packages=(file lintian desktop-file-utils appstream)

package_installed() {
    dpkg-query --show --showformat '${db:Status-Status}\n' "$1" 2>/dev/null | grep -qx installed
}

on_debian_12() {
    # shellcheck source=/dev/null
    (. /etc/os-release && [[ $ID == debian && $VERSION_ID == 12 ]]) 2>/dev/null
}

# install_packages NAME...: installs those that are missing. Where it may not, it names them and ends the script.
install_packages() {
    local missing=() as_root=() name
    for name in "$@"; do
        package_installed "$name" || missing+=("$name")
    done
    ((${#missing[@]} > 0)) || return 0

    ((EUID == 0)) || as_root=(sudo)
    if ! on_debian_12 || { ((EUID != 0)) && ! command -v sudo >/dev/null; }; then
        echo "Packages are missing, and only on Debian 12, as root or with sudo, are they installed from here." >&2
        echo "Install these, or what they are called on your system, and start again: ${missing[*]}" >&2
        exit 1
    fi
    echo "Installing ${missing[*]}"
    # Without a network the lists that are there may still do.
    "${as_root[@]}" apt-get -qq update </dev/null || true
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 \
        install --yes --no-install-recommends "${missing[@]}" </dev/null
}
