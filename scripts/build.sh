# Shared by ./run and ./test: installs what the build needs, then configures
# and builds Kalvex (Release) in build/. Sourced, not run.

kalvex_packages=(cmake ninja-build g++ qt6-base-dev qt6-svg-dev qt6-serialport-dev fonts-dejavu-core
                 libgtest-dev libbenchmark-dev libnlopt-cxx-dev libcli11-dev nlohmann-json3-dev)

# Installs the build's packages, and any more named as arguments.
kalvex_install_missing() {
  local missing=()
  for package in "${kalvex_packages[@]}" "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" ||
      missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0

  echo "Installing ${missing[*]}"
  local install="apt-get update && DEBIAN_FRONTEND=noninteractive apt-get install -y ${missing[*]}"
  if [ "$(id -u)" -eq 0 ]; then
    bash -c "$install"
  elif command -v sudo >/dev/null && sudo -n true 2>/dev/null; then
    sudo bash -c "$install"
  else
    echo "Kalvex needs these packages first. Run, as root:" >&2
    echo "  apt-get update && apt-get install -y ${missing[*]}" >&2
    return 1
  fi
}

# Builds Kalvex; the arguments name further packages to install first.
kalvex_build() {
  local top
  top=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
  kalvex_install_missing "$@" || return 1
  cmake -S "$top" -B "$top/build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null || return 1
  cmake --build "$top/build" || return 1
}
