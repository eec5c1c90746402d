# Debian packages, for the scripts that install what is missing.

BUILD_PACKAGES=(g++ cmake ninja-build pkg-config ccache git ca-certificates
    qt6-base-dev qt6-svg-dev libpulse-dev libsndfile1-dev libfontconfig-dev libxcb1-dev libxcb-xkb-dev
    python3 python3-fonttools weasyprint fonts-lato fonts-comic-neue fonts-dejavu-core)

RUN_PACKAGES=(libqt6widgets6 libcups2 libqt6svg6 libqt6xml6 qt6-qpa-plugins qt6-image-formats-plugins
    qt6-translations-l10n libpulse0 libsndfile1 libxcb-xkb1 fonts-dejavu-core fonts-liberation2
    fonts-comic-neue)

# A screen and a printer of one's own, to work the program from outside.
PICTURE_PACKAGES=(xvfb openbox xdotool dbus at-spi2-core python3-pyatspi python3-pil
    cups-daemon cups-core-drivers cups-filters-core-drivers cups-client poppler-utils)

TEST_PACKAGES=("${PICTURE_PACKAGES[@]}" x11-utils x11-xserver-utils weston qt6-wayland
    xwayland tigervnc-standalone-server
    python3-xlib pulseaudio pulseaudio-utils procps
    clang-14 libclang-rt-14-dev clang-format-14 clang-tidy-14
    g++-mingw-w64-x86-64-posix locales mold)

COVERAGE_PACKAGES=(gcovr)

PACKAGE_PACKAGES=(debhelper dpkg-dev lintian desktop-file-utils appstream man-db mmdebstrap)

# The toolkit for Windows is built from Debian's sources of it.
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix dpkg-dev nsis)

WINDOWS_TEST_PACKAGES=("${PICTURE_PACKAGES[@]}" wine64)

BENCH_PACKAGES=(xvfb openbox x11-utils libxcb-damage0-dev libxcb-xtest0-dev libxcb-keysyms1-dev
    x11proto-dev)

# Installs those of its arguments that are missing.
install_missing() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done
    # The npm client brings the cursive font; one that is there already will do.
    command -v npm >/dev/null || missing+=(npm)
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}"
    local as_root=()
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
