# What ./run and ./check share: the machine made ready, and the build. Sourced from the root of the tree.

# To build the programs and run them.
PAQUETS_PROGRAMME="cmake ninja-build pkg-config qt6-base-dev qt6-serialport-dev libsystemd-dev libcairo2-dev libpng-dev
  nlohmann-json3-dev fonts-liberation qt6-translations-l10n"
# To test, measure and deliver them.
PAQUETS="$PAQUETS_PROGRAMME qt6-svg-dev libgtest-dev libbenchmark-dev dbus-daemon python3-dbusmock xvfb at-spi2-core
  python3-pyatspi dpkg-dev groff-base desktop-file-utils appstream libxml2-utils lintian"
PAQUETS_ECRAN_VIRTUEL="xvfb xdotool imagemagick"

# Installs the Debian packages of the list that are missing, and says so.
installer() {
  local manquants=() p sudo=""
  for p in "$@"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'ok installed' || manquants+=("$p")
  done
  [ ${#manquants[@]} -eq 0 ] && return 0
  echo "Installing: ${manquants[*]}"
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "These packages are missing and sudo is not here: ${manquants[*]}" >&2; exit 1; }
    sudo="sudo"
  fi
  export DEBIAN_FRONTEND=noninteractive
  $sudo apt-get update -qq
  $sudo apt-get install -y -qq --no-install-recommends "${manquants[@]}" >/dev/null
}

# How far a build is, in one line where somebody looks on.
avancement() {
  local ligne
  while read -r ligne; do
    if [ -t 1 ] && [[ $ligne =~ ^\[[0-9]+/[0-9]+\] ]]; then printf '\r%s ' "${BASH_REMATCH[0]}"; fi
  done
  if [ -t 1 ]; then echo; fi
}

# Builds one preset; tells how far it is, and the end of its output when something is wrong. What builds the programs
# alone takes a folder that knows more as it is.
construire() {
  local preset=$1 dossier=$2 journal
  journal=$(mktemp)
  shift 2
  { [ "$preset" = programme ] && [ -f "$dossier/build.ninja" ]; } ||
    cmake --preset "$preset" >"$journal" 2>&1 || { cat "$journal"; exit 1; }
  echo "Building ($preset)"
  cmake --build --preset "$preset" "$@" 2>&1 | tee "$journal" | avancement || { tail -n 60 "$journal"; exit 1; }
  rm -f "$journal"
}

# Whether a simulated loom may take this link: nothing is there, or what one that was killed has left. A link to an
# adapter that is unplugged waits for it.
prise_libre() {
  [ ! -e "$1" ] && { [ ! -L "$1" ] || [[ "$(readlink "$1")" == /dev/pts/* ]]; }
}
