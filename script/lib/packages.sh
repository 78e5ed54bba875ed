# Sourced by the scripts: what the program needs from Debian 12, and its installation where something is missing.

# shellcheck shell=bash disable=SC2034
build_packages=(
    cmake ninja-build g++ pkg-config
    qt6-base-dev qt6-serialport-dev qt6-multimedia-dev libsqlcipher-dev zlib1g-dev libqrencode-dev
)
# Texts are drawn as boxes on a machine that has no font at all. Cameras are read by the plug-ins of GStreamer.
run_packages=(fonts-dejavu-core gstreamer1.0-plugins-base gstreamer1.0-plugins-good)
virtual_display_packages=(xvfb xauth)
picture_packages=(xdotool scrot openbox poppler-utils)
# Tests read printed matter back with pdftotext.
test_packages=(poppler-utils)
lint_packages=(clang-format clang-tidy shellcheck)

is_installed()
{
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null) == installed ]]
}

# Makes sure that the named packages are there. Asks nothing; says what it installs.
need_packages()
{
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "This is not a Debian system; going on with what is there. On Debian 12 these packages are used: $*"
        return
    fi
    local package missing=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    ((${#missing[@]})) || return 0

    local root=()
    if ((EUID != 0)); then
        if ! command -v sudo >/dev/null; then
            echo "Missing packages. Please install them as root and start this again:" >&2
            echo "    apt-get install ${missing[*]}" >&2
            return 1
        fi
        root=(sudo)
    fi
    echo "Installing: ${missing[*]}"
    "${root[@]}" apt-get update -q </dev/null
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}" </dev/null
}
