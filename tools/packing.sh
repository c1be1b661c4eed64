# What package and the checks of packages share; sourced by bash after common.sh.
PACKING_PACKAGES=(cmark-gfm git perl unzip zip)
# Their code is linked into the programs.
LINKED_PACKAGES=(mingw-w64-x86-64-dev "${WINDOWS_PACKAGES[0]}")

# For a reader on Windows.
with_crlf() { sed 's/$/\r/'; }

# The notices of what these packages of Debian put into a program, as they themselves carry them.
notices()
{
    local package
    echo "QBSettings is Copyright 2026 Halvane. What is linked into its programs from other sources comes from these packages of"
    echo "Debian. Each notice also covers parts of its package that are in no program here, such as sources and tools."
    for package in "$@"; do
        printf '\n%s\n%s %s\n%s\n\n' "${package//?/=}" "$package" "$(dpkg-query -W -f '${Version}' "$package")" "${package//?/=}"
        cat "/usr/share/doc/$package/copyright"
    done
}

# Signs a program for the certificate that the environment names, if it names one.
sign()
{
    local options=(-h sha256 -n "Quorvex Bench Settings")
    if [ -n "${QB_SIGN_PKCS12:-}" ]; then
        options+=(-pkcs12 "$QB_SIGN_PKCS12")
    elif [ -n "${QB_SIGN_PKCS11_MODULE:-}" ]; then
        need libengine-pkcs11-openssl
        options+=(-pkcs11module "$QB_SIGN_PKCS11_MODULE" -pkcs11cert "$QB_SIGN_CERT" -key "$QB_SIGN_KEY")
    else
        return 0
    fi
    need osslsigncode
    [ -z "${QB_SIGN_PASSWORD_FILE:-}" ] || options+=(-readpass "$QB_SIGN_PASSWORD_FILE")
    [ -z "${QB_SIGN_TIMESTAMP:-}" ] || options+=(-ts "$QB_SIGN_TIMESTAMP")
    osslsigncode sign "${options[@]}" -in "$1" -out "$1.signed" ||
        die "${1##*/} could not be signed, so there is no package; see README.md for what the QB_SIGN_ variables hold."
    mv "$1.signed" "$1"
}

# Makes NAME.zip of the folder NAME in build/package, with the sums of its files in it, and its own sum beside it.
pack()
{
    local name=$1
    cd "$package/$name"
    # Written elsewhere: the list is of the files without it.
    find . -type f -printf '%P\n' | LC_ALL=C sort | xargs -d '\n' sha256sum > "../$name.sums"
    mv "../$name.sums" SHA256SUMS
    cd ..
    # What a zip keeps of a file beside its bytes: the mode, and the local time of the last change.
    chmod -R u=rwX,go=rX "$name"
    find "$name" -type f -exec touch -d "@$(git -C "$root" log -1 --format=%ct)" {} +
    find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -X -9 -q "$name.zip" -@
    sha256sum "$name.zip" >> SHA256SUMS
    TZ=UTC unzip -l "$name.zip"
    cd "$root"
}
