# What run, test and tools/wine share; sourced by bash.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

BUILD_PACKAGES=(g++ cmake ninja-build googletest)
# For the sanitizers and the fuzzer; llvm names the lines in their reports.
SANITIZED_PACKAGES=(clang libclang-rt-dev llvm libwine-dev wine64-tools)
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix)
# The fonts hold the metrics of Tahoma, by which dialogs are laid out.
WINE_PACKAGES=(wine wine64 fonts-wine libxrender1 xvfb)

say() { printf '\n== %s\n' "$*"; }
die()
{
    printf '%s\n' "$*" >&2
    exit 1
}

as_root()
{
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# Runs apt-get, waiting for another that holds its locks: a fresh machine updates itself when it starts.
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

# Installs those of the packages that are missing.
need()
{
    local package missing=()
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    command -v apt-get >/dev/null ||
        die "This needs Debian's apt-get to install ${missing[*]}; use a Debian 12 or 13 machine."
    [ "$(id -u)" = 0 ] || command -v sudo >/dev/null ||
        die "Packages are missing, and only root can install them: apt-get install --no-install-recommends ${missing[*]}"
    say "Installing ${missing[*]}"
    apt update || true
    apt install -y --no-install-recommends "${missing[@]}" ||
        die "The packages ${missing[*]} could not be installed; see the messages above."
}

# Configures the preset where that is still to be done, and builds the targets (all of them, if none is named).
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

# Keeps a processor from idling, at the lowest priority: a virtual one takes longer to wake than most of the messages
# that go to and fro between Wine's programs and its server, and tests take five times as long.
stay_awake()
{
    nice -n 19 bash -c 'while kill -0 "$1" 2>/dev/null; do for ((i = 0; i < 100000; i++)); do :; done; done' - $$ &
    awake_pid=$!
}

# Gives this process a screen of its own, on a display number that is free.
virtual_display()
{
    local number output
    exec {output}< <(exec Xvfb -displayfd 1 -screen 0 "${QB_SCREEN:-1600x1200}x24" -dpi 96 -nolisten tcp 2>/dev/null)
    xvfb_pid=$!
    read -r -t 30 number <&"$output" ||
        die "No virtual display could be started; see what Xvfb says when it is run by hand."
    export DISPLAY=:$number
}

# Runs one of Wine's own programs; the first argument says what for. What it says goes through no pipe, which programs that
# Wine starts in the background would hold open.
wine_step()
{
    local purpose=$1 log=$root/build/wine/step.log
    shift
    wine "$@" > "$log" 2>&1 ||
        die "Wine could not $purpose; $1 says: $(tr -d '\r' < "$log" | tail -n 1). Remove $WINEPREFIX and try again."
}

# Sets Wine up in a prefix of our own. To be ended by end_wine.
wine_prefix()
{
    export WINEPREFIX=$root/build/wine/$1
    # Nothing of .NET or HTML is used, and Wine would offer to download both. Its debugger would hold up what crashes.
    export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES='mscoree,mshtml,winedbg.exe='
    mkdir -p "$root/build/wine"
    wine_used=1
    if [ ! -f "$WINEPREFIX/system.reg" ]; then
        say "Setting up Wine in ${WINEPREFIX#"$root"/}"
        # Debian's Wine does not look for its own fonts where the package of them puts them.
        mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
        cp /usr/share/wine/fonts/* "$WINEPREFIX/drive_c/windows/Fonts"
        wine_step "set up its folder" wineboot --init
    fi
    # Nobody manages windows on a virtual display: Wine draws their frames itself, and waits for no answers.
    local managed=Y
    [ -z "$xvfb_pid" ] || managed=N
    if ! grep -qsx $managed "$WINEPREFIX/managed"; then
        wine_step "set how windows are managed" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d $managed /f
        echo $managed > "$WINEPREFIX/managed"
    fi
}

# Sets the prefix's dots per inch, which its server reads at its start.
set_dpi()
{
    local dpi
    dpi=$(cat "$WINEPREFIX/dpi" 2>/dev/null || echo 96)
    [ "$dpi" != "$1" ] || return 0
    wine_step "set the dots per inch" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f
    wineserver -k || true
    echo "$1" > "$WINEPREFIX/dpi"
}

# Runs a program: with the sanitizers' library if it is of the sanitized build. Wine's own services must run then
# without it, so they are started before.
run_watched()
{
    case $1 in
        *.so)
            wine explorer /desktop=quiet,1600x1200 >/dev/null 2>&1 &
            wine cmd /c exit
            LD_PRELOAD=$(clang++ -print-file-name=libclang_rt.asan-x86_64.so) \
                ASAN_OPTIONS=use_sigaltstack=0:verify_asan_link_order=0:detect_leaks=1${ASAN_OPTIONS:+:$ASAN_OPTIONS} \
                LSAN_OPTIONS=suppressions=$root/cmake/sanitized/leaks.supp:print_suppressions=0 \
                UBSAN_OPTIONS=print_stacktrace=1 /usr/lib/wine/wine64 "$@"
            ;;
        *) wine "$@" ;;
    esac
}

ALL_TOOLS=AlderQB,BirchQB,CedarQB,DogwoodQB,ElmQB,FirQB,GinkgoQB,HazelQB,IvyRig,JuniperRig,KauriQB

# Lists the tools as installed, as their own installers do.
list_tools()
{
    local file=build/installed.reg tool
    {
        printf 'Windows Registry Editor Version 5.00\r\n\r\n'
        printf '[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvane\\Installed]\r\n\r\n'
        printf '[HKEY_LOCAL_MACHINE\\SOFTWARE\\Halvane\\Installed]\r\n'
        for tool in ${1//,/ }; do printf '"%s"=dword:00000001\r\n' "$tool"; done
    } > "$file"
    wine_step "list the tools as installed" regedit /S "$file"
}

# Makes the fuzzer's first inputs in a new folder, the same ones each time: for each section of the reference, of which
# most are pages, its title with various numbers of arbitrary bytes.
make_corpus()
{
    rm -rf "$1"
    mkdir -p "$1"
    LC_ALL=C awk -v folder="$1" '
        /^## / {
            srand(1)
            sub(/^## /, "")
            sub(/ & /, " \\&\\& ")
            for (count = 0; count <= 200; count += 40) {
                file = folder "/" NR "-" count
                print > file
                for (i = 0; i < count; i++) printf "%c", int(rand() * 256) > file
                close(file)
            }
        }' docs/settings.md
}
