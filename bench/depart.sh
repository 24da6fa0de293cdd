#!/usr/bin/env bash
# From process start to the first full painting of the main window, beside a bare window of the same size: both
# in turn on the same display, medians in milliseconds. To reach: a ratio of at most 2.
#   bench/depart.sh [build folder] [runs]
set -euo pipefail
export LC_ALL=C
dossier=${1:-build} tours=${2:-15}

mesurer() { QT_QPA_PLATFORM=$1 timeout 20 "$dossier/bench/$2" "${EPOCHREALTIME/./}000" 2>/dev/null; }
mediane() { sort -n | awk '{v[NR] = $1} END {print NR % 2 ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2}'; }

comparer() {
  local ecran=$1 programme="" nue=""
  for p in depart fenetre_nue; do mesurer "$ecran" $p >/dev/null; done # the disk's cache
  for ((i = 0; i < tours; i++)); do
    programme+="$(mesurer "$ecran" depart)"$'\n'
    nue+="$(mesurer "$ecran" fenetre_nue)"$'\n'
  done
  local a b
  a=$(printf '%s' "$programme" | mediane)
  b=$(printf '%s' "$nue" | mediane)
  awk -v e="$ecran" -v a="$a" -v b="$b" -v n="$tours" \
    'BEGIN {printf "%-9s program %.1f ms, bare window %.1f ms, ratio %.2f (%d runs each)\n", e, a, b, a / b, n}'
}

comparer offscreen
if [ -n "${DISPLAY:-}" ]; then comparer xcb; fi
