# shellcheck shell=bash
# Sourced by ./run and ./test: the Debian packages that Gridwright needs, and how to get those that are missing.

# To build and run the program.
# shellcheck disable=SC2034 # used by the scripts that source this one
run_packages=(build-essential cmake ninja-build qt6-base-dev qt6-5compat-dev ca-certificates fonts-dejavu-core)

# To build and run the tests, besides.
# shellcheck disable=SC2034
test_packages=(libgtest-dev libgmock-dev clang-format ccache python3 xvfb openbox xdotool)

# Prints those of the given packages that are not installed.
missing_packages() {
    local installed
    installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null | sed -n 's/ installed$//p' || true)
    comm -23 <(printf '%s\n' "$@" | LC_ALL=C sort) <(LC_ALL=C sort -u <<<"$installed")
}

# Installs those of the given packages that are missing, through sudo if need be. Leaves the script if it cannot.
install_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "Not a Debian system: nothing is installed. The build needs the likes of: $*" >&2
        return
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    if [[ ${#missing[@]} -eq 0 ]]; then
        return
    fi
    local as_root=()
    if [[ $EUID -ne 0 ]]; then
        as_root=(sudo)
        if ! command -v sudo >/dev/null || { ! sudo -n true 2>/dev/null && [[ ! -t 0 ]]; }; then
            echo "Packages are missing and this user may not install them. As root, run:" >&2
            echo "    apt-get update && apt-get install --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
    fi
    echo "Installing: ${missing[*]}"
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}"
}
