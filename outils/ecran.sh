# A virtual screen and a hand on its mouse and keyboard, for the scripts that run the real program. Sourced.
# The caller sets essai (the program's folder), images (folder of the pictures) and may set echelle, and ordres, a
# pipe for the commands of the simulated loom.
echelle=${echelle:-1}

# Prepares a program's folder of its own at $essai, so that the weaver's settings stay untouched.
preparer_programme() {
  rm -rf "$essai" && mkdir -p "$images" "$essai/Ports"
  cp "$1/programme/brandis" "$1/programme/metier-simule" "$essai/"
  cp -r "$1/programme/Images" "$1/programme/Dessins Boutons" "$essai/"
  mkdir -p "$essai/Data"
  cp "$racine/Data/"* "$essai/Data/"
  : >"$essai/Data/Resume.Trm"  # as the program's folder comes
  : >"$essai/Data/Resume2.Trm"
}

ouvrir_ecran() {
  # Without -noreset it starts over when its last client goes, and refuses one that comes meanwhile.
  exec 3< <(exec Xvfb -displayfd 1 -noreset -screen 0 $((1024 * echelle))x$((768 * echelle))x24 -wr -nolisten tcp 2>/dev/null)
  xvfb=$!
  metier=$xvfb brandis=$xvfb
  trap 'kill "$metier" "$brandis" "$xvfb" 2>/dev/null || true' EXIT
  local numero
  read -r numero <&3
  export DISPLAY=:$numero QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$echelle LC_ALL=C.UTF-8
  unset WAYLAND_DISPLAY
}

# Runs a command until it succeeds, at most some twenty seconds.
attendre() {
  local i
  for i in $(seq 200); do "$@" && return 0; sleep 0.1; done
  echo "Gave up waiting for: $*" >&2
  import -window root "$images/echec.png"
  exit 1
}
fenetre_la() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
fenetre_partie() { ! fenetre_la "$1"; }
leves() { [ "$(grep -c '^shed ' "$journal")" -ge "$1" ]; }

# The window and what stands on it, as a file in $images.
image() {
  import -window root -crop $((812 * echelle))x$((642 * echelle))+$((106 * echelle))+$((63 * echelle)) \
    +repage "$images/$1.png"
  echo "  picture: $images/$1.png"
}

# Places are those of the window at scale 1, from its top left corner.
pointer() { xdotool mousemove $((108 * echelle + $1 * echelle)) $((65 * echelle + $2 * echelle)) sleep 0.15; }
clic() { pointer "$1" "$2" && xdotool click 1 sleep 0.4; }
# The item of a list field of the panel by its rank, from 1.
choisir() {
  clic "$1" "$2" && xdotool key Home
  local i
  for i in $(seq 2 "$3"); do xdotool key Down; done
  xdotool key Return && sleep 0.3
}

ouvrir_metier() {
  "$essai/metier-simule" --journal "$@" >"$journal" <"${ordres:-/dev/null}" &
  metier=$!
  attendre grep -q '^loom:' "$journal"
}
ouvrir_programme() {
  "$essai/brandis" 2>>"$essai/brandis.log" &
  brandis=$!
  attendre fenetre_la '^Brandis$'
  sleep 1
}
ouvrir_patron() {
  clic 160 590
  attendre fenetre_la 'Open|Ouvrir'
  xdotool type --delay 20 "$1"
  xdotool key Return
  attendre fenetre_partie 'Open|Ouvrir'
  sleep 0.5
}
quitter_programme() {
  clic 665 34
  attendre fenetre_partie '^Brandis$'
  wait "$brandis" || { echo "The program ended badly" >&2; exit 1; }
}
