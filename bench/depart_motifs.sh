#!/usr/bin/env bash
# From process start to exit of the verbs of brandis-motifs: median and worst in milliseconds. To reach: 15 ms.
#   bench/depart_motifs.sh [build folder] [runs]
set -euo pipefail
export LC_ALL=C
dossier=${1:-build} tours=${2:-51}
programme=$dossier/programme/brandis-motifs motif=$dossier/programme/Data/Chevron16.Wif
image=$(mktemp --suffix=.png)
trap 'rm -f "$image"' EXIT

mesurer() {
  local nom=$1 debut
  shift
  for ((i = 0; i < tours; i++)); do
    debut=${EPOCHREALTIME/./}
    "$@" >/dev/null
    echo $((${EPOCHREALTIME/./} - debut))
  done | sort -n | awk -v nom="$nom" '{v[NR] = $1 / 1000} END {printf "%-10s median %.1f ms, worst %.1f ms (%d runs)\n", nom, v[int((NR + 1) / 2)], v[NR], NR}'
}
mesurer --version "$programme" --version
mesurer info "$programme" info "$motif"
mesurer verifier "$programme" verifier "$motif"
mesurer dessiner "$programme" dessiner "$motif" -o "$image" --remplacer
