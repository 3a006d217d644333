# What run and test need, as Debian 12 packages. Sourced: install_missing LIST... installs what is not there.
# Another library that serves better is welcome here with its reason in README.

build_packages="g++ cmake ninja-build pkg-config git mold ccache
  qt6-base-dev qt6-svg-dev libqscintilla2-qt6-dev libfreeimage-dev libzip-dev libexpected-dev libx11-dev libxdo-dev
  libavformat-dev libavcodec-dev libswscale-dev libseccomp-dev libopenmpt-dev libsdl2-dev libmpg123-dev
  libfluidsynth-dev fonts-liberation"
run_packages="libqt6svg6 timgm6mb-soundfont xvfb openbox xdotool imagemagick x11-utils"
test_packages="libgtest-dev timgm6mb-soundfont clang-format xvfb openbox xdotool xterm
  shared-mime-info desktop-file-utils xdg-utils libglib2.0-bin dbus"

install_missing() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
            root=(sudo -n)
        elif command -v sudo >/dev/null && [ -t 0 ]; then
            root=(sudo)
        else
            echo "These packages are missing. Install them and start again:"
            echo "  apt-get install ${missing[*]}"
            exit 3
        fi
    fi
    echo "Installing ${missing[*]}"
    "${root[@]}" apt-get update -q >/dev/null || true
    DEBIAN_FRONTEND=noninteractive "${root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}" >/dev/null
}
