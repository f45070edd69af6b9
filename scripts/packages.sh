# SPDX-License-Identifier: MIT
# shellcheck shell=bash
# shellcheck disable=SC2034 # the lists are for the scripts that source this one
# Sourced by ./run, ./test and .ci/run: the Debian packages that a job needs, and how they get here.

# The system as "debian 12", and whether packages are installed from here on it; elsewhere they are only named.
# shellcheck source=/dev/null
system=$(. /etc/os-release 2>/dev/null && echo "$ID ${VERSION_ID-}") || system=unknown
case $system in
"debian 12" | "ubuntu 24.04") known_system=yes packaged_qt=5 ;;
"debian 13" | "ubuntu 26.04") known_system=yes packaged_qt=6 ;;
*) known_system='' packaged_qt=6 ;;
esac

# Which of the two builds is made: VANTU_QT=6 ./run asks for the other one where there are both.
qt=${VANTU_QT:-$packaged_qt}
case $qt in
5) preset_suffix='' qt_packages=(qtbase5-dev qtbase5-private-dev qttranslations5-l10n libqt5webkit5-dev) ;;
6) preset_suffix=6 qt_packages=(qt6-base-dev qt6-base-dev-tools qt6-base-private-dev qt6-translations-l10n qt6-webengine-dev libnss3-tools) ;;
*) echo "VANTU_QT must be 5 or 6: \"$qt\"" >&2; exit 2 ;;
esac

build_packages=(
    g++ cmake ninja-build pkgconf "${qt_packages[@]}"
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

# install_packages NAME...: installs those that are missing. Where it may not, it names them and ends the script.
install_packages() {
    local missing=() as_root=() name
    for name in "$@"; do
        package_installed "$name" || missing+=("$name")
    done
    ((${#missing[@]} > 0)) || return 0

    ((EUID == 0)) || as_root=(sudo)
    if [[ -z $known_system ]] || { ((EUID != 0)) && ! command -v sudo >/dev/null; }; then
        echo "Packages are missing, and only on Debian 12 and 13 and Ubuntu 24.04 and 26.04, as root or with sudo, are" \
            "they installed from here." >&2
        echo "Install these, or what they are called on your system, and start again: ${missing[*]}" >&2
        exit 1
    fi
    echo "Installing ${missing[*]}"
    # Without a network the lists that are there may still do.
    "${as_root[@]}" apt-get -qq update </dev/null || true
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 \
        install --yes --no-install-recommends "${missing[@]}" </dev/null
}
