# Sourced by the scripts of the project: output, what the machine must have, and builds by preset.
# shellcheck shell=bash

project_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
jobs=$(getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2)

bold='' plain=''
if [ -t 1 ] && [ -z "${NO_COLOR-}" ]; then
    bold=$'\033[1m' plain=$'\033[0m'
fi

# The libraries, which have the names of their folders, in the order in which they are built.
libraries=()
while read -r folder; do
    if grep -q '^kormak_add_library(' "$project_dir/$folder/CMakeLists.txt"; then
        libraries+=("$folder")
    fi
done < <(sed -n 's/^ *add_subdirectory(\(.*\))$/\1/p' "$project_dir/CMakeLists.txt")

heading() {
    printf '\n%s== %s ==%s\n' "$bold" "$*" "$plain"
}

complain() {
    printf '%s\n' "$@" >&2
}

# quietly LOG COMMAND...: keeps the output in a file and shows it only when the command fails.
quietly() {
    local log=$1
    shift
    mkdir -p "$(dirname "$log")"
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
}

# minimum NAME: a minimum version that CMakeLists.txt states.
minimum() {
    case $1 in
        cmake) sed -n 's/^cmake_minimum_required(VERSION \(.*\))$/\1/p' "$project_dir/CMakeLists.txt" ;;
        qt*) sed -n "s/^set(KORMAK_MINIMUM_QT_${1#qt} \(.*\))\$/\1/p" "$project_dir/CMakeLists.txt" ;;
    esac
}

has_cmake() {
    local wanted found
    wanted=$(minimum cmake)
    found=$(cmake --version 2>/dev/null | sed -n 's/^cmake version //p') || return 1
    [ "$(printf '%s\n' "$wanted" "$found" | sort -V | head -n 1)" = "$wanted" ]
}

# finds PACKAGE...: whether CMake finds the package; the arguments are those of find_package.
finds() {
    local dir status=0
    dir=$(mktemp -d)
    {
        printf 'cmake_minimum_required(VERSION %s)\nproject(probe LANGUAGES CXX)\n' "$(minimum cmake)"
        printf 'find_package(%s)\n' "$*"
    } >"$dir/CMakeLists.txt"
    cmake -G Ninja -S "$dir" -B "$dir/build" >/dev/null 2>&1 || status=1
    rm -rf "$dir"
    return $status
}

has_valgrind() {
    command -v valgrind >/dev/null &&
        echo '#include <valgrind/callgrind.h>' | "${CXX:-c++}" -x c++ -fsyntax-only - >/dev/null 2>&1
}

# runs_under SANITIZERS COMPILER SOURCE: the compiler makes a program of the source that starts and ends.
runs_under() {
    local dir status=0
    dir=$(mktemp -d)
    echo "$3" >"$dir/probe.cpp"
    { "$2" "-fsanitize=$1" "$dir/probe.cpp" -o "$dir/probe" && "$dir/probe" -runs=0; } >/dev/null 2>&1 || status=1
    rm -rf "$dir"
    return $status
}

# requirement NAME PACKAGE TEST DESCRIPTION: what a script may ask for, the Debian package that brings it, and the command
# that succeeds when it is there.
declare -A package_of test_of description_of
requirement() {
    package_of[$1]=$2 test_of[$1]=$3 description_of[$1]=$4
}

# requirement_program NAME PACKAGE DESCRIPTION: a program of that name.
requirement_program() {
    requirement "$1" "$2" "command -v $1" "$3 ($1)"
}

cxx=${CXX:-c++}
requirement compiler g++ "command -v $cxx" "a C++17 compiler ($cxx)"
requirement sanitizers g++ "runs_under address,undefined $cxx 'int main() {}'" \
    "AddressSanitizer and UndefinedBehaviorSanitizer for $cxx"
requirement clang-sanitizers libclang-rt-dev "runs_under address,undefined clang++ 'int main() {}'" \
    "AddressSanitizer and UndefinedBehaviorSanitizer for clang++"
requirement fuzzer libclang-rt-dev \
    "runs_under fuzzer,address,undefined clang++ 'extern \"C\" int LLVMFuzzerTestOneInput(const char *, unsigned long) { return 0; }'" \
    "libFuzzer and the sanitizers for clang++"
requirement_program clang++ clang "Clang"
requirement_program ld.lld lld "the linker of LLVM"
requirement_program clang-tidy clang-tidy "clang-tidy"
requirement cmake cmake has_cmake "CMake $(minimum cmake) or newer (cmake)"
requirement_program ninja ninja-build "Ninja"
requirement_program make make "GNU make"
for qt in 6 5; do
    requirement "qt$qt" "$([ $qt = 6 ] && echo qt6-base-dev || echo qtbase5-dev)" \
        "finds Qt$qt $(minimum qt$qt) REQUIRED COMPONENTS Core Test Widgets" \
        "Qt $qt, $(minimum qt$qt) or newer, with Core, Test, Widgets and their CMake packages"
done
requirement qt6-quick qt6-declarative-dev "finds Qt6 $(minimum qt6) REQUIRED COMPONENTS Quick" "Qt Quick of Qt 6"
requirement qt5-quick qtdeclarative5-dev "finds Qt5 $(minimum qt5) REQUIRED COMPONENTS Quick" "Qt Quick of Qt 5"
requirement qt6-qml qml6-module-qtquick "compgen -G '/usr/lib/*/qt6/qml/QtQuick/qmldir'" \
    "the QML module QtQuick of Qt 6"
requirement qt6-worker qml6-module-qtqml-workerscript "compgen -G '/usr/lib/*/qt6/qml/QtQml/WorkerScript/qmldir'" \
    "the QML module QtQml.WorkerScript of Qt 6"
requirement qt5-qml qml-module-qtquick2 "compgen -G '/usr/lib/*/qt5/qml/QtQuick.2/qmldir'" \
    "the QML module QtQuick of Qt 5"
requirement qt6-xml qt6-base-dev "finds Qt6 $(minimum qt6) REQUIRED COMPONENTS Xml" "Qt Xml of Qt 6"
requirement_program pkg-config pkg-config "pkg-config"
requirement dpkg dpkg-dev "command -v dpkg-deb && command -v dpkg-shlibdeps" "dpkg's tools for making packages"
requirement_program file file "file, which tells programs from other files"
requirement_program abidw abigail-tools "libabigail"
requirement_program python3 python3 "Python 3"
requirement shapely python3-shapely "python3 -c 'import shapely' || /usr/bin/python3 -c 'import shapely'" "Shapely for Python 3"
requirement_program ogrinfo gdal-bin "GDAL"
requirement chromium chromium "command -v chromium || command -v chromium-browser || command -v google-chrome" "Chromium"
requirement_program xvfb-run xvfb "the X server without a screen"
requirement_program xauth xauth "the X server's authority"
requirement_program tidy tidy "HTML Tidy"
requirement jsonschema python3-jsonschema "python3 -c 'import jsonschema'" "Python's jsonschema"
requirement_program xmllint libxml2-utils "libxml2's xmllint"
requirement_program sqlite3 sqlite3 "the shell of SQLite"
requirement_program git git "git"
requirement_program pre-commit pre-commit "pre-commit"
requirement_program zsh zsh "the Z shell"
requirement_program shellcheck shellcheck "ShellCheck"
requirement_program doxygen doxygen "Doxygen"
requirement_program groff groff-base "groff"
requirement gcovr gcovr "command -v gcovr && command -v g++" "gcovr, and g++, whose counts it reads"
requirement locales locales "command -v localedef && [ -f /usr/share/i18n/locales/de_DE ]" \
    "glibc's localedef with the sources of its locales"
requirement zones tzdata "[ -f /usr/share/zoneinfo/Asia/Kathmandu ]" "the data of time zones (/usr/share/zoneinfo)"
requirement valgrind valgrind has_valgrind "Valgrind with its headers"
requirement benchmark libbenchmark-dev "finds benchmark REQUIRED" "Google Benchmark and its CMake package"
requirement pugixml libpugixml-dev "finds pugixml REQUIRED" "pugixml and its CMake package"
requirement boost libboost-serialization-dev "finds Boost REQUIRED COMPONENTS serialization" "Boost.Serialization"
requirement xerces libxerces-c-dev "finds XercesC REQUIRED" "Xerces-C++"
requirement_program xsdcxx xsdcxx "CodeSynthesis XSD"

has() {
    eval "${test_of[$1]}" >/dev/null 2>&1
}

# find_missing REQUIREMENT...: sets `missing`, and `packages` to the Debian packages that bring it.
find_missing() {
    local requirement
    missing=() packages=()
    for requirement in "$@"; do
        if ! has "$requirement"; then
            missing+=("$requirement")
            packages+=("${package_of[$requirement]}")
        fi
    done
    if [ ${#missing[@]} -gt 0 ]; then
        readarray -t packages < <(printf '%s\n' "${packages[@]}" | sort -u)
    fi
}

# list_missing: what is missing, and the command that installs it on Debian. What CMake looks for counts as missing as
# long as CMake cannot run.
list_missing() {
    local requirement blind=''
    for requirement in "${missing[@]}"; do
        [[ ! $requirement =~ ^(compiler|cmake|ninja)$ ]] || blind=', which only CMake with Ninja and a compiler can look for'
    done
    echo "Not found on this machine:"
    for requirement in "${missing[@]}"; do
        if [[ ${test_of[$requirement]} = finds\ * ]]; then
            echo "  - ${description_of[$requirement]}$blind"
        else
            echo "  - ${description_of[$requirement]}"
        fi
    done
    echo "On Debian: apt-get install --no-install-recommends ${packages[*]}"
}

install_packages() {
    local as_root=() log=$project_dir/build/install.log
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    heading "Installing it; the output is in build/install.log"
    local apt_get=("${as_root[@]+"${as_root[@]}"}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y)
    quietly "$log" "${apt_get[@]}" update </dev/null || complain "Trying with the package lists that are there."
    quietly "$log" "${apt_get[@]}" install --no-install-recommends "$@" </dev/null || return
    sed -n 's/^Setting up \([^ ]*\) (\(.*\)) \.\.\.$/  - \1 \2/p' "$log"
}

# require REQUIREMENT...: goes on when the machine has them all. Else it tells all that is missing and installs it where
# it may; ends the script when something stays missing.
require() {
    local missing packages
    find_missing "$@"
    [ ${#missing[@]} -gt 0 ] || return 0
    list_missing >&2
    if command -v apt-get >/dev/null && { [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null; }; then
        install_packages "${packages[@]}" >&2 || exit 1
        find_missing "$@"
        [ ${#missing[@]} -gt 0 ] || return 0
        list_missing >&2
    fi
    exit 1
}

# tell_size FOLDER...: how much space build folders take, and how to have it back.
tell_size() {
    echo "Together, $* take $(du -ch -- "$@" | sed -n '$s/[[:space:]].*//p'). To have the space back: rm -r $*"
}

# build PRESET FOLDER [OPTION...]: configures and builds build/FOLDER.
build() {
    cmake --preset "$1" -B "$project_dir/build/$2" "${@:3}" && cmake --build "$project_dir/build/$2"
}

# run_tests FOLDER [OPTION...]: runs the tests that were built there.
run_tests() {
    ctest --test-dir "$project_dir/build/$1" --output-on-failure --no-tests=error --parallel "$jobs" "${@:2}"
}
