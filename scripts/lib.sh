# Sourced by the scripts of the project: output, what the machine must have, and builds by preset.
# shellcheck shell=bash

project_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
jobs=$(getconf _NPROCESSORS_ONLN 2>/dev/null || echo 2)

bold='' plain=''
if [ -t 1 ] && [ -z "${NO_COLOR-}" ]; then
    bold=$'\033[1m' plain=$'\033[0m'
fi

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

has() {
    case $1 in
        compiler) command -v "${CXX:-c++}" >/dev/null ;;
        cmake) has_cmake ;;
        ninja) command -v ninja >/dev/null ;;
        qt6 | qt5) finds "Qt${1#qt}" "$(minimum "$1")" REQUIRED COMPONENTS Core Test ;;
        qt6-xml) finds Qt6 "$(minimum qt6)" REQUIRED COMPONENTS Xml ;;
        benchmark | pugixml) finds "$1" REQUIRED ;;
        boost) finds Boost REQUIRED COMPONENTS serialization ;;
        xerces) finds XercesC REQUIRED ;;
        xsd) command -v xsdcxx >/dev/null ;;
        valgrind) has_valgrind ;;
        xmllint) command -v xmllint >/dev/null ;;
        clang) command -v clang++ >/dev/null ;;
        sanitizers) runs_under address,undefined "${CXX:-c++}" 'int main() {}' ;;
        fuzzer)
            runs_under fuzzer,address,undefined clang++ \
                'extern "C" int LLVMFuzzerTestOneInput(const char *, unsigned long) { return 0; }'
            ;;
        doxygen) command -v doxygen >/dev/null ;;
    esac
}

describe() {
    case $1 in
        compiler) echo "a C++17 compiler (${CXX:-c++})" ;;
        cmake) echo "CMake $(minimum cmake) or newer (cmake)" ;;
        ninja) echo "Ninja (ninja)" ;;
        qt6 | qt5) echo "Qt ${1#qt}, $(minimum "$1") or newer, with Qt Core, Qt Test and their CMake packages" ;;
        qt6-xml) echo "Qt Xml of Qt 6" ;;
        benchmark) echo "Google Benchmark and its CMake package" ;;
        pugixml) echo "pugixml and its CMake package" ;;
        boost) echo "Boost.Serialization" ;;
        xerces) echo "Xerces-C++" ;;
        xsd) echo "CodeSynthesis XSD (xsdcxx)" ;;
        valgrind) echo "Valgrind with its headers" ;;
        xmllint) echo "libxml2's xmllint" ;;
        clang) echo "Clang (clang++)" ;;
        doxygen) echo "Doxygen (doxygen)" ;;
        sanitizers) echo "AddressSanitizer and UndefinedBehaviorSanitizer for ${CXX:-c++}" ;;
        fuzzer) echo "libFuzzer and the sanitizers for clang++" ;;
    esac
}

debian_package() {
    case $1 in
        compiler | sanitizers) echo g++ ;;
        cmake) echo cmake ;;
        ninja) echo ninja-build ;;
        qt6 | qt6-xml) echo qt6-base-dev ;;
        qt5) echo qtbase5-dev ;;
        benchmark) echo libbenchmark-dev ;;
        pugixml) echo libpugixml-dev ;;
        boost) echo libboost-serialization-dev ;;
        xerces) echo libxerces-c-dev ;;
        xsd) echo xsdcxx ;;
        valgrind) echo valgrind ;;
        xmllint) echo libxml2-utils ;;
        clang) echo clang ;;
        fuzzer) echo libclang-rt-dev ;;
        doxygen) echo doxygen ;;
    esac
}

# find_missing REQUIREMENT...: sets `missing`. Qt cannot be found without the tools that look for it.
find_missing() {
    local requirement
    missing=()
    for requirement in "$@"; do
        has "$requirement" || missing+=("$requirement")
    done
}

install_packages() {
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            complain "Please install as root: apt-get install $*"
            exit 1
        fi
        as_root=(sudo)
    fi
    heading "Installing $*"
    local apt_get=("${as_root[@]+"${as_root[@]}"}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y)
    quietly "$project_dir/build/install.log" "${apt_get[@]}" update </dev/null ||
        complain "Trying with the package lists that are there."
    quietly "$project_dir/build/install.log" "${apt_get[@]}" install --no-install-recommends "$@" </dev/null
}

# require REQUIREMENT...: goes on when the machine has them all, else installs what is missing where there is apt-get;
# ends the script when something stays missing.
require() {
    local requirement packages=()
    find_missing "$@"
    if [ ${#missing[@]} -gt 0 ] && command -v apt-get >/dev/null; then
        for requirement in "${missing[@]}"; do
            packages+=("$(debian_package "$requirement")")
        done
        install_packages "${packages[@]}"
        find_missing "$@"
    fi
    if [ ${#missing[@]} -gt 0 ]; then
        complain "Not found on this machine; please install:"
        for requirement in "${missing[@]}"; do
            complain "  - $(describe "$requirement")"
        done
        exit 1
    fi
}

# build_and_test PRESET FOLDER: configures build/FOLDER, builds it and runs its tests.
build_and_test() {
    cmake --preset "$1" -B "$project_dir/build/$2" && cmake --build "$project_dir/build/$2" &&
        ctest --test-dir "$project_dir/build/$2" --output-on-failure --no-tests=error --parallel "$jobs"
}
