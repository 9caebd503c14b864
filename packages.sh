# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash disable=SC2034
#
# The Debian packages that the project needs, in one place, and how ./run and ./test get them. Sourced, not run.

# What compiles and runs the program and its tests. Every find_package() of the top CMakeLists.txt has a line here.
build_packages=(
    g++                     # with it the runtimes of the address and undefined-behaviour sanitizers
    cmake
    ninja-build
    ccache                  # a second build costs seconds
    qt6-base-dev            # Core, Gui, Widgets, Network, PrintSupport; the X11 and the offscreen platform
    qt6-serialport-dev
    libqcustomplot-dev
    libqcustomplot2.1-qt6   # QCustomPlot built for Qt 6
    libsqlite3-dev
    libavahi-client-dev     # the search of the network for instruments
    sqlite3                 # makes the database from its schema, and is the export's yardstick
    python3-markdown        # makes the pages of the manual
    libgtest-dev
    libgmock-dev
    libbenchmark-dev
    dpkg-dev                # finds what the Debian package depends on; its tests too need the next three
    desktop-file-utils
    appstream
    mandoc
    fonts-dejavu-core       # Qt brings no font of its own
    fonts-wqy-microhei      # the Chinese words in the file dialogs; the smallest font that has all of them
)

# What the tests need besides: programs of others, which are run against the simulated instrument, and what reads the
# program as a screen reader does.
test_packages=(
    lxi-tools
    sigrok-cli
    socat                   # makes a serial line of a socket
    python3-pyvisa
    python3-pyvisa-py
    python3-serial
    xvfb                    # a screen,
    dbus                    # a session,
    at-spi2-core            # the accessibility bus
    python3-pyatspi         # and a reader of what is on it
    avahi-daemon            # announces instruments that the program searches for,
    iproute2                # on a network of the test's own
)

# What a session without an X server needs besides.
wayland_packages=(qt6-wayland)

# What ./test fuzz needs besides.
fuzz_packages=(
    clang
    libclang-rt-14-dev      # libFuzzer and the sanitizers of clang
)

# What bench/run needs besides.
bench_packages=(xvfb xauth)

# What ./test lint needs besides.
lint_packages=(clang-format clang-tidy git shellcheck)

say() { printf '\n== %s\n' "$*"; }
fail() { printf '%s: %s\n' "${0##*/}" "$*" >&2; exit 1; }

# missing_packages NAME...: those of the packages that are not installed, one a line.
missing_packages()
{
    local name
    for name in "$@"; do
        dpkg-query -W -f '${db:Status-Status}\n' "$name" 2>/dev/null | grep -qx installed || echo "$name"
    done
}

# need_packages NAME...: says which packages are missing and installs them, as root or with sudo. Where it can't, it
# names the command that will, and ends the script.
need_packages()
{
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "This is no Debian system, so nothing is installed. Needed, by their Debian names:"
        echo "   $*"
        return
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0

    say "Missing packages: ${missing[*]}"
    local by_hand="apt-get install --no-install-recommends ${missing[*]}"
    local as_root=()
    if ((EUID != 0)); then
        command -v sudo >/dev/null || fail "neither root nor sudo here. Please have this run as root: $by_hand"
        as_root=(sudo)
        [[ -t 0 ]] || as_root+=(--non-interactive)
        "${as_root[@]}" true || fail "sudo is refused. Please have this run as root: $by_hand"
    fi
    local apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300)
    "${apt[@]}" update || echo "Some package lists could not be renewed; going on with those that are there."
    echo "Installing them; on a fresh machine this takes a minute or two."
    "${apt[@]}" install --yes --no-install-recommends "${missing[@]}" >/dev/null ||
        fail "the packages could not be installed. Please try: $by_hand"
}
