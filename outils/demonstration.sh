#!/usr/bin/env bash
# Weaves a sample pattern through the real window on a virtual screen, by real mouse and key events, and keeps
# pictures of the main steps. Argument: the build folder.
set -euo pipefail
racine=$(cd "$(dirname "$0")/.." && pwd)
build=$(cd "$1" && pwd)
images=$build/captures
essai=$build/demonstration
journal=$essai/metier.log
. "$racine/outils/ecran.sh"

preparer_programme "$build"
ouvrir_ecran
ouvrir_metier --cadence 300

echo "First start"
ouvrir_programme
attendre fenetre_la '^Note$'           # the settings file is not there yet
image 0-message-du-premier-depart
attendre fenetre_partie '^Note$'
image 1-premier-ecran
echo "Configure: COM 1, weave option Pattern"
clic 383 590
choisir 440 220 1
choisir 440 287 1
image 2-configuration
clic 455 179
echo "Open Sapins24.Wif"
ouvrir_patron Sapins24.Wif
image 3-patron-ouvert
echo "Start, twelve picks"
clic 65 545
attendre leves 12
image 4-tissage
echo "Stop"
clic 175 545
image 5-arrete
echo "Quit, and start again in the same place"
quitter_programme
ouvrir_programme
image 6-deuxieme-depart
quitter_programme
kill "$metier"
etat=0
wait "$metier" || etat=$?

echo "Sheds that the loom received:"
grep '^shed ' "$journal" | sed 's/^/  /'
tail -n 1 "$journal"
echo "Pictures are in $images"
[ "$etat" -eq 0 ] || { echo "The loom counted errors on the line" >&2; exit 1; }
