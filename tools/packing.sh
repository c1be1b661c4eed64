# Functions that package and the checks of packages share. They source this file after common.sh.
PACKING_PACKAGES=(cmark-gfm git perl unzip zip)
# The packages whose code is linked into the programs.
LINKED_PACKAGES=(mingw-w64-x86-64-dev "${WINDOWS_PACKAGES[0]}")

with_crlf() { sed 's/$/\r/'; }

# Prints the copyright notices of Debian packages whose code is linked into a program.
notices()
{
    local package
    echo "QBSettings is Copyright 2026 Halvane. Its programs also contain code from the following packages of Debian. Each notice"
    echo "also covers parts of its package that are not in these programs, such as sources and tools."
    for package in "$@"; do
        printf '\n%s\n%s %s\n%s\n\n' "${package//?/=}" "$package" "$(dpkg-query -W -f '${Version}' "$package")" "${package//?/=}"
        cat "/usr/share/doc/$package/copyright"
    done
}

# Signs a program if the environment names a certificate.
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
        die "${1##*/} could not be signed, so there is no package. README.md describes the QB_SIGN_ variables."
    mv "$1.signed" "$1"
}

# Packs the folder NAME in build/package into NAME.zip. Adds the checksums of its files to the folder, and the checksum of the
# zip to the SHA256SUMS beside it.
pack()
{
    local name=$1
    cd "$package/$name"
    # The list is written outside the folder, so that it does not include itself.
    find . -type f -printf '%P\n' | LC_ALL=C sort | xargs -d '\n' sha256sum > "../$name.sums"
    mv "../$name.sums" SHA256SUMS
    cd ..
    # A zip also stores each file's mode and the local time of its last change, so these must be the same for each package.
    chmod -R a-x,u=rwX,go=rX "$name"
    find "$name" -type f -exec touch -d "@$(git -C "$root" log -1 --format=%ct)" {} +
    find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -X -9 -q "$name.zip" -@
    sha256sum "$name.zip" >> SHA256SUMS
    TZ=UTC unzip -l "$name.zip"
    cd "$root"
}
