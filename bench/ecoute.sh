#!/usr/bin/env bash
# What the listening interval costs: from the loom's report to the moment when the loom has the next shed, at the pace
# of a real line (1200 baud), and the processor time of the program meanwhile. The real program, offscreen, and the
# simulated loom, whose cycles vary so that reports fall anywhere between two polls.
#   bench/ecoute.sh [build folder] [seconds for each interval] [intervals in ms ...]
set -euo pipefail
export LC_ALL=C
commandes=$(cd "$(dirname "$0")/.." && pwd)/session/Commandes.h
build=$(cd "${1:-build}" && pwd) secondes=${2:-60}
intervalles=("${@:3}")
[ ${#intervalles[@]} -gt 0 ] || intervalles=(100 50 20 5)
dossier=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$dossier"' EXIT
trame=133.3   # ms that the 16 bytes of a frame need at 1200 baud

faire() { echo "$1" >&"${pilote[1]}" && read -r reponse <&"${pilote[0]}" && [ "$reponse" = ok ]; }
attendre() { local i; for i in $(seq 200); do "$@" && return 0; sleep 0.05; done; echo "Gave up: $*" >&2; exit 1; }
# A command by its name in the table of commands.
cliquer() { attendre faire "clic BoutonProgramme($(sed -nE "s/^  $1 = ([0-9]+),$/\1/p" "$commandes"))"; }
horloge() { awk '{print $14 + $15}' "/proc/$pid/stat"; }

mesurer() {
  local intervalle=$1 journal=$dossier/metier.log pid debut
  rm -rf "$dossier"/* && mkdir -p "$dossier/Ports"
  cp -r "$build/programme/Images" "$build/programme/Dessins Boutons" "$build/programme/Data" "$dossier/"
  rm -f "$dossier/Data/"*.Con "$dossier/Data/"*.Trm
  "$build/programme/metier-simule" --dossier "$dossier" >"$journal" \
    < <(while :; do echo "cadence $((150 + RANDOM % 250))"; sleep 0.2; done) &
  local metier=$!
  attendre grep -q 'loom:' "$journal"
  coproc pilote { exec "$build/tests/pilote" "$dossier" 2>/dev/null; }
  pid=$pilote_PID
  cliquer Configurer
  attendre faire "choisir ComConfiguration(1) COM 1"
  attendre faire "choisir ComConfiguration(5) Pattern"
  cliquer SortirConfiguration
  attendre faire "ecrire TxtVitessePortSerie $intervalle"
  cliquer OuvrirMotif
  attendre faire "fichier $dossier/Data/Figure24.Wif"
  cliquer Demarrer
  attendre grep -q 'shed 2 ' "$journal"
  debut=$(horloge)
  sleep "$secondes"
  local temps=$(($(horloge) - debut))
  kill "$pid" "$metier"
  wait "$pid" "$metier" 2>/dev/null || true
  # From "report" to the next "shed", both with the loom's own clock.
  awk -v trame=$trame '{split($1, h, ":"); t = ((h[1] * 60 + h[2]) * 60 + h[3]) * 1000}
    $2 == "report" {r = t} $2 == "shed" && r {print t - r - trame; r = 0}' "$journal" | sort -n |
    awk -v i="$intervalle" -v c="$temps" -v s="$secondes" -v hz="$(getconf CLK_TCK)" '{v[NR] = $1; somme += $1}
      END {printf "every %3d ms: wait mean %.0f, median %.0f, 95th percentile %.0f, longest %.0f ms (%d picks); processor %.2f %%\n",
           i, somme / NR, v[int((NR + 1) / 2)], v[int(NR * .95 + .5)], v[NR], NR, 100 * c / hz / s}'
}

for i in "${intervalles[@]}"; do mesurer "$i"; done
