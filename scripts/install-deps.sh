#!/usr/bin/env bash
# Installs the Debian packages that building, testing and running the demo need,
# and only those that are missing. Safe to run again.
set -euo pipefail

packages=(
  build-essential cmake pkg-config git python3
  libpugixml-dev libsqlite3-dev sqlite3 libxml2-dev libxml2-utils
  libcli11-dev libgtest-dev libgmock-dev googletest libbenchmark-dev
  unixodbc-dev
  clang libclang-rt-dev   # make fuzz: clang with libFuzzer and the sanitizers' run-times
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
$sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
