#!/usr/bin/env bash
# Weaves a sample pattern through the real window on a virtual screen, by real mouse and key events, and keeps
# pictures of the main steps. Argument: the build folder.
set -euo pipefail
build=$(cd "$1" && pwd)
images=$build/captures
essai=$build/demonstration           # a program's folder of its own: the weaver's settings stay untouched
journal=$essai/metier.log

rm -rf "$essai" && mkdir -p "$images" "$essai/Data" "$essai/Ports"
cp "$build/programme/brandis" "$build/programme/metier-simule" "$essai/"
cp "$build/programme/Data/"*.Wif "$essai/Data/"
cp -r "$build/programme/Images" "$build/programme/Dessins Boutons" "$essai/"

exec 3< <(exec Xvfb -displayfd 1 -screen 0 1024x768x24 -nolisten tcp 2>/dev/null)
xvfb=$!
fin() { kill "$metier" "$brandis" "$xvfb" 2>/dev/null || true; }
metier=$xvfb brandis=$xvfb
trap fin EXIT
read -r numero <&3
export DISPLAY=:$numero QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY

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
image() { import -window root -crop 812x642+106+63 +repage "$images/$1.png"; echo "  picture: $images/$1.png"; }
clic() { xdotool mousemove $((108 + $1)) $((65 + $2)) sleep 0.15 click 1 sleep 0.4; }
ouvrir_programme() {
  "$essai/brandis" 2>>"$essai/brandis.log" &
  brandis=$!
  attendre fenetre_la '^Brandis$'
  sleep 1
}

"$essai/metier-simule" --journal --cadence 300 >"$journal" </dev/null &
metier=$!
attendre grep -q '^loom:' "$journal"

echo "First start"
ouvrir_programme
image 0-message-du-premier-depart      # the settings file is not there yet
attendre fenetre_partie '^Note$'
image 1-premier-ecran
echo "Configure: COM 1, weave option Pattern"
clic 383 590
clic 440 220 && xdotool key Home Return && sleep 0.3
clic 440 287 && xdotool key Home Return && sleep 0.3
image 2-configuration
clic 455 179
echo "Open Figure24.Wif"
clic 160 590
attendre fenetre_la 'Open|Ouvrir'
xdotool type --delay 20 "Figure24.Wif"
xdotool key Return
attendre fenetre_partie 'Open|Ouvrir'
sleep 0.5
image 3-patron-ouvert
echo "Start, twelve picks"
clic 65 545
attendre leves 12
image 4-tissage
echo "Stop"
clic 175 545
image 5-arrete
echo "Quit, and start again in the same place"
clic 665 34
attendre fenetre_partie '^Brandis$'
wait "$brandis" || { echo "The program ended badly" >&2; exit 1; }
ouvrir_programme
image 6-deuxieme-depart
clic 665 34
attendre fenetre_partie '^Brandis$'
kill "$metier"
etat=0
wait "$metier" || etat=$?

echo "Sheds that the loom received:"
grep '^shed ' "$journal" | sed 's/^/  /'
tail -n 1 "$journal"
echo "Pictures are in $images"
[ "$etat" -eq 0 ] || { echo "The loom counted errors on the line" >&2; exit 1; }
