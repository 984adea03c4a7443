#!/usr/bin/env bash
# On a machine that has nothing, scripts/lib.sh names all that a script needs at once, and each package once; as root it
# installs that, and tells what came of it.

set -euo pipefail

scripts=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../scripts" && pwd)
machine=$(mktemp -d)
trap 'rm -rf "$machine"' EXIT
mkdir -p "$machine/project/scripts" "$machine/bin"
cp "$scripts/lib.sh" "$machine/project/scripts"
cp "$scripts/../CMakeLists.txt" "$machine/project"
for program in bash cat dirname env getconf grep head mkdir mktemp rm sed sort; do
    ln -s "$(type -P "$program")" "$machine/bin/$program"
done

# program NAME: its text is what is read.
program() {
    { echo '#!/usr/bin/env bash' && cat; } >"$machine/bin/$1"
    chmod +x "$machine/bin/$1"
}

# requires REQUIREMENT...: sets `status` and `output`.
requires() {
    status=0
    output=$(PATH=$machine/bin CXX=c++ bash -c 'source "$1/project/scripts/lib.sh" 2>/dev/null; shift; require "$@"' \
        requires "$machine" "$@" 2>&1) || status=$?
}

# expect STATUS LINE...: the last call ended so, and each line stands in its output once.
expect() {
    local line times
    if [ "$status" -ne "$1" ]; then
        echo "Ended with $status, not $1: $output"
        exit 1
    fi
    for line in "${@:2}"; do
        times=$(grep -cxF -e "$line" <<<"$output" || true)
        if [ "$times" -ne 1 ]; then
            printf '"%s" stands there %s times:\n%s\n' "$line" "$times" "$output"
            exit 1
        fi
    done
}

blind=', which only CMake with Ninja and a compiler can look for'
packages='doxygen g++ qt6-base-dev'
list=("Not found on this machine:" "  - a C++17 compiler (c++)" "  - Qt Xml of Qt 6$blind" "  - Doxygen (doxygen)"
    "On Debian: apt-get install --no-install-recommends $packages")

# No Debian.
requires compiler qt6 qt6-xml doxygen
expect 1 "${list[@]}"

# Debian, but neither root nor sudo: nothing is tried.
program apt-get <<<'echo "apt-get $*"'
program id <<<'echo 1000'
requires compiler qt6 qt6-xml doxygen
expect 1 "${list[@]}"

# What cannot be installed is shown with what apt-get says, and what it is for remains there to read.
program id <<<'echo 0'
program apt-get <<<'echo "apt-get $*"; [[ $* = *" update" ]] || exit 100'
requires compiler qt6 qt6-xml doxygen
expect 1 "${list[@]}" "apt-get -q -y install --no-install-recommends $packages"

program apt-get <<END
echo "Setting up doxygen (1.9.4-4) ..."
ln -sf "$(type -P true)" "$machine/bin/doxygen"
END
ln -s "$(type -P ln)" "$machine/bin/ln"
requires doxygen
expect 0 "Not found on this machine:" "  - Doxygen (doxygen)" "  - doxygen 1.9.4-4"

# Nothing is missing, and nothing is said.
requires doxygen
if [ "$status" -ne 0 ] || [ -n "$output" ]; then
    echo "Ended with $status: $output"
    exit 1
fi
