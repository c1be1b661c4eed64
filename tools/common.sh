# Functions that the commands share. The commands source this file.
set -euo pipefail

# Starts the command again with fixed addresses, where that is permitted. At random addresses, one in several thousand
# processes of Wine 8 cannot start, because its heap covers the page at 0x7ffe0000, which Wine needs.
if [ -f "$0" ] && [ "$(cat /proc/self/personality)" = 00000000 ] && setarch -R true 2>/dev/null; then
    exec setarch -R bash "$0" "$@"
fi

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

BUILD_PACKAGES=(g++ cmake ninja-build googletest)
# llvm adds line numbers to the sanitizers' reports.
SANITIZED_PACKAGES=(clang libclang-rt-dev llvm libwine-dev wine64-tools)
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix)
# The fonts include Tahoma, whose metrics determine the size of dialogs.
WINE_PACKAGES=(wine wine64 fonts-wine libxrender1 xvfb)

say() { printf '\n== %s\n' "$*"; }
die()
{
    printf '%s\n' "$*" >&2
    exit 1
}

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

# Runs apt-get. Waits while another apt-get holds the locks, because a fresh machine updates itself at its first start.
apt()
{
    local try output
    for try in {1..60}; do
        output=$(as_root env DEBIAN_FRONTEND=noninteractive LC_ALL=C apt-get -q -o DPkg::Lock::Timeout=300 "$@" 2>&1) && return
        grep -qE 'Could not get lock|Unable to (acquire|lock)' <<< "$output" || break
        sleep 5
    done
    printf '%s\n' "$output" >&2
    return 1
}

# Installs the packages that are missing.
need()
{
    local package missing=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    command -v apt-get >/dev/null ||
        die "apt-get is needed to install ${missing[*]}. Use a Debian 12 or 13 machine."
    [ "$(id -u)" = 0 ] || command -v sudo >/dev/null ||
        die "Packages are missing, and only root can install them: apt-get install --no-install-recommends ${missing[*]}"
    say "Installing ${missing[*]}"
    apt update || true
    apt install -y --no-install-recommends "${missing[@]}" ||
        die "The packages ${missing[*]} could not be installed. See the messages above."
}

# Configures the preset if necessary, and builds the given targets, or all targets if none is given.
build()
{
    local preset=$1
    shift
    if [ ! "build/$preset/configured" -nt CMakePresets.json ]; then
        cmake --preset "$preset" -Wno-dev || return
        : > "build/$preset/configured"
    fi
    cmake --build "build/$preset" ${1:+--target "$@"}
}

xvfb_pid=
awake_pid=
wine_used=

end_wine()
{
    [ -z "$wine_used" ] || wineserver -k || true
    local pid
    for pid in $xvfb_pid $awake_pid; do kill "$pid" 2>/dev/null || true; done
    wine_used= xvfb_pid= awake_pid=
}

# Keeps a processor busy at the lowest priority. An idle virtual processor takes longer to wake than Wine's server takes
# for most messages, so that tests would take five times as long.
stay_awake()
{
    nice -n 19 bash -c 'while kill -0 "$1" 2>/dev/null; do for ((i = 0; i < 100000; i++)); do :; done; done' - $$ &
    awake_pid=$!
}

# Starts a virtual display for this process on a free display number.
virtual_display()
{
    local number output
    exec {output}< <(exec Xvfb -displayfd 1 -screen 0 "${QB_SCREEN:-1600x1200}x24" -dpi 96 -nolisten tcp 2>/dev/null)
    xvfb_pid=$!
    read -r -t 30 number <&"$output" ||
        die "Xvfb could not start a virtual display. Run Xvfb by hand to see why."
    export DISPLAY=:$number
}

# Runs one of Wine's own programs. The first argument completes the error message. The output goes to a file, because Wine's
# background programs would keep a pipe open.
wine_step()
{
    local purpose=$1 log=$root/build/wine/step.log
    shift
    wine "$@" > "$log" 2>&1 ||
        die "Wine could not $purpose. The message of $1: $(tr -d '\r' < "$log" | tail -n 1). Remove $WINEPREFIX and try again."
}

# Sets up a Wine prefix below build/wine. The caller must call end_wine.
wine_prefix()
{
    export WINEPREFIX=$root/build/wine/$1
    # Wine would offer to download .NET and HTML support, which nothing uses. Its debugger would keep a crashed program open.
    export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES='mscoree,mshtml,winedbg.exe='
    mkdir -p "$root/build/wine"
    wine_used=1
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        say "Setting up Wine in ${WINEPREFIX#"$root"/}"
        # Debian's Wine does not find the fonts in the folder of their package.
        mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
        cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts"
        wine_step "set up its folder" wineboot --init
    fi
    # A virtual display has no window manager, so Wine must draw the frames of windows itself.
    wine_setting Managed "$([ -n "$xvfb_pid" ] && echo N || echo Y)" 'HKCU\Software\Wine\X11 Driver'
}

# Sets a value in the prefix's registry unless it has been set before. The other arguments are the key and options of reg.
wine_setting()
{
    local name=$1 data=$2
    ! grep -qsx "$data" "$WINEPREFIX/$name" || return 0
    wine_step "set $name" reg add "$3" /v "$name" /d "$data" /f "${@:4}"
    # Wine's server reads some values only when it starts.
    wineserver -k || true
    echo "$data" > "$WINEPREFIX/$name"
}

# Starts Wine in a prefix, on a virtual display, until the calling script ends.
start_wine()
{
    trap end_wine EXIT
    virtual_display
    wine_prefix "$1"
}

ALL_TOOLS=AlderQB,BirchQB,CedarQB,DogwoodQB,ElmQB,FirQB,GinkgoQB,HazelQB,IvyRig,JuniperRig,KauriQB

# Lists the tools as installed in the registry, as their installers do.
list_tools()
{
    local file=build/installed.reg names
    IFS=, read -ra names <<< "$1"
    {
        printf 'Windows Registry Editor Version 5.00\n\n'
        printf '[%sHKEY_LOCAL_MACHINE\\SOFTWARE\\Halvane\\Installed]\n' - ''
        printf '"%s"=dword:1\n' "${names[@]}"
    } > "$file"
    wine_step "list the tools as installed" regedit /S "$file"
}
