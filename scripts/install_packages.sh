#!/usr/bin/env bash
# Installs the named Debian packages that are not on the machine yet. Says and does nothing when
# all are there. Needs root or sudo only when something is missing.
set -euo pipefail

missing=()
for package in "$@"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || {
        echo "These packages are missing, and there is neither root nor sudo to install them:" >&2
        echo "  ${missing[*]}" >&2
        exit 1
    }
    as_root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
