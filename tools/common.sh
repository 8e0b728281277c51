# Shared by ./run and ./test: packages, a virtual screen, a Wine prefix of our own. Sourced, not run.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

say() { printf '== %s\n' "$*"; }

# need_packages PACKAGE...: installs what is missing, with apt-get.
need_packages() {
    local missing=() package
    for package in "$@"; do
        dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local root_command=()
    [ "$(id -u)" -eq 0 ] || root_command=(sudo)
    say "installing ${missing[*]}"
    "${root_command[@]}" apt-get update -qq
    "${root_command[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

build_packages=(cmake ninja-build g++ googletest libgtest-dev)
windows_packages=(g++-mingw-w64-x86-64-posix wine wine64 xvfb fonts-wine fonts-liberation)

# build PRESET [TARGET...]: configures a preset and builds everything of it, or some targets. Shows
# how far it is: all the time on a terminal, every few seconds elsewhere.
build() {
    local preset=$1 targets=("${@:2}")
    say "building preset $preset"
    cmake --preset "$preset" >"build/$preset.configure.log" 2>&1 ||
        { cat "build/$preset.configure.log"; return 1; }
    if [ -t 1 ]; then
        cmake --build --preset "$preset" --target "${targets[@]:-all}"
    else
        cmake --build --preset "$preset" --target "${targets[@]:-all}" | now_and_then
    fi
}

# Passes on every line of a build, but its steps only every five seconds.
now_and_then() {
    local line next=0
    while IFS= read -r line; do
        [[ $line == \[* ]] && ((SECONDS < next)) && continue
        printf '%s\n' "$line"
        next=$((SECONDS + 5))
    done
}

# What was started here ends here.
display_pid=
cleanup() {
    [ -z "${WINEPREFIX:-}" ] || wineserver -k >/dev/null 2>&1 || true
    [ -z "$display_pid" ] || kill "$display_pid" 2>/dev/null || true
}
trap cleanup EXIT

# A virtual screen of our own, whatever DISPLAY says.
start_screen() {
    local number
    exec {number}< <(exec Xvfb -displayfd 1 -screen 0 1400x1000x24 -nolisten tcp 2>/dev/null)
    display_pid=$!
    local display
    read -r display <&"$number"
    export DISPLAY=":$display"
}

# A Wine prefix inside the build folder, quiet, without the parts that nothing here uses. Its desktop
# stays open, so that not every program starts all of Wine.
start_wine() {
    export WINEPREFIX="$root/build/wine" WINEDEBUG=-all WINEARCH=win64
    export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
    [ -f "$WINEPREFIX/.ready-2" ] || prepare_wine
    wine explorer /desktop=Default,1280x900 >/dev/null 2>&1 &
    # Nothing of Wine is left to be started by a program whose output somebody waits for.
    wine cmd /c exit >/dev/null 2>&1
}

prepare_wine() {
    say "preparing Wine"
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    wine wineboot --init >/dev/null 2>&1
    local desktop='HKCU\Control Panel\Desktop'
    wine reg add "$desktop" /v FontSmoothing /d 2 /f >/dev/null
    wine reg add "$desktop" /v FontSmoothingType /t REG_DWORD /d 2 /f >/dev/null
    # A desktop of its own gives windows their captions, and shows them without a window manager.
    wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null
    wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x900 /f >/dev/null
    # Tahoma, and Marlett for the glyphs in captions: Wine's own fonts, which it does not find itself.
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    # The faces that every Windows has, under their names.
    local faces='HKCU\Software\Wine\Fonts\Replacements'
    wine reg add "$faces" /v Arial /d "Liberation Sans" /f >/dev/null
    wine reg add "$faces" /v "Courier New" /d "Liberation Mono" /f >/dev/null
    wine reg add "$faces" /v "Times New Roman" /d "Liberation Serif" /f >/dev/null
    wineserver -k -w
    touch "$WINEPREFIX/.ready-2"
}

mkdir -p build
