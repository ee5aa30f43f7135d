#!/usr/bin/env bash
# Processor time as a share of wall time, for the two waits that must not
# spin (filo-sim idle, and filo-cli sending to a module that never answers),
# and for filo-sim under random traffic.
#   bench/cpu_share.sh [BIN_DIR] [IDLE_SECONDS] [WAIT_MS]
set -euo pipefail
bin=${1:-build/bin}
idle=${2:-10}
wait_ms=${3:-5000}
tick=$(getconf CLK_TCK)

# CPU seconds (user + system) of a running process, from /proc.
cpu_of() { awk -v t="$tick" '{ printf "%.3f", ($14 + $15) / t }' "/proc/$1/stat"; }

out=$(mktemp)
"$bin/filo-sim" --modules 00121F --silent 00221F >"$out" &
sim=$!
trap 'kill $sim 2>/dev/null || true; rm -f "$out"' EXIT
for _ in $(seq 50); do [ -s "$out" ] && break; sleep 0.1; done
port=$(head -n1 "$out")

before=$(cpu_of $sim)
sleep "$idle"
after=$(cpu_of $sim)
awk -v a="$before" -v b="$after" -v w="$idle" \
  'BEGIN { printf "filo-sim idle %ss: cpu %.3fs = %.3f%% of wall\n", w, b - a, 100 * (b - a) / w }'

# Two answer windows of 0.1 s + WAIT_MS each, nobody answering.
before=$(cpu_of $sim)
/usr/bin/time -f "%e %U %S" -o "$out.time" \
  "$bin/filo-cli" send --port "$port" --wait "$wait_ms" '(30022EC05]' >/dev/null || true
after=$(cpu_of $sim)
read -r wall user sys < <(tail -n1 "$out.time")
rm -f "$out.time"
awk -v w="$wall" -v u="$user" -v s="$sys" -v a="$before" -v b="$after" \
  'BEGIN { printf "filo-cli send --wait to a silent module: wall %.2fs, cpu %.2fs = %.3f%% of wall (filo-sim meanwhile %.3fs)\n", w, u + s, 100 * (u + s) / w, b - a }'

# filo-sim with --traffic 50: sixteen links programmed into it (input n of
# 0011 drives relay n of 0012, which tells its event; that event drives relay
# n of 0013), so each press or release runs two links and puts two events on
# the line; 50 of them a second for IDLE_SECONDS.
kill $sim 2>/dev/null || true
wait $sim 2>/dev/null || true
"$bin/filo-sim" --modules 00111F,00121F,00131F --traffic 50 >"$out" &
sim=$!
for _ in $(seq 50); do [ -s "$out" ] && break; sleep 0.1; done
port=$(head -n1 "$out")
for n in 1 2 3 4 5 6 7 8; do
  "$bin/filo-cli" send --port "$port" "(100120${n}${n}0011000000001800FB0900000000]" >/dev/null
  "$bin/filo-cli" send --port "$port" "(10013$(printf %02X $((16 + n)))${n}0012000000000000FB0900000000]" >/dev/null
done
before=$(cpu_of $sim)
sleep "$idle"
after=$(cpu_of $sim)
awk -v a="$before" -v b="$after" -v w="$idle" \
  'BEGIN { printf "filo-sim --traffic 50 for %ss: cpu %.3fs = %.3f%% of one core\n", w, b - a, 100 * (b - a) / w }'
