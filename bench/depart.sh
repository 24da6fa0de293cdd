#!/usr/bin/env bash
# From process start to the first full painting of the main window, beside a bare window of the same size: both
# in turn on the same display, medians in milliseconds. To reach: a ratio of at most 1.9 under X11.
# On a display once as this shell is, once with a session bus, as every desktop has one.
#   bench/depart.sh [build folder] [runs]
set -euo pipefail
export LC_ALL=C
dossier=${1:-build} tours=${2:-15}

mesurer() { QT_QPA_PLATFORM=$1 timeout 20 "$dossier/bench/$2" "${EPOCHREALTIME/./}000" 2>/dev/null; }
mediane() { sort -n | awk '{v[NR] = $1} END {print NR % 2 ? v[(NR + 1) / 2] : (v[NR / 2] + v[NR / 2 + 1]) / 2}'; }

comparer() {
  local ecran=$1 bus=${DBUS_SESSION_BUS_ADDRESS:+with a bus} programme="" nue="" a b
  for p in depart fenetre_nue; do mesurer "$ecran" $p >/dev/null; done # the disk's cache
  for ((i = 0; i < tours; i++)); do
    programme+="$(mesurer "$ecran" depart)"$'\n'
    nue+="$(mesurer "$ecran" fenetre_nue)"$'\n'
  done
  a=$(printf '%s' "$programme" | mediane)
  b=$(printf '%s' "$nue" | mediane)
  awk -v e="$ecran, ${bus:-no bus}" -v a="$a" -v b="$b" -v n="$tours" 'BEGIN {
    printf "%-20s program %.1f ms, bare window %.1f ms, ratio %.2f (%d runs each)\n", e, a, b, a / b, n}'
}

if [ "${3:-}" = bus ]; then
  comparer xcb
  exit
fi
comparer offscreen
if [ -n "${DISPLAY:-}" ]; then
  comparer xcb
  if [ -z "${DBUS_SESSION_BUS_ADDRESS:-}" ]; then dbus-run-session -- "$0" "$dossier" "$tours" bus 2>/dev/null; fi
fi
