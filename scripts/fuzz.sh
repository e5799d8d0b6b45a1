#!/usr/bin/env bash
# fuzz.sh [SECONDS] [--keep]: feeds every parser of what others wrote with inputs that a fuzzer makes,
# for so many seconds each (30 unless said), beginning with those in tests/fuzz, and prints a row for
# each; what crashes one is kept below build/fuzz/crashes. --keep adds to tests/fuzz the fewest of the
# inputs found that reach what was reached.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
# shellcheck source=setup.sh
. scripts/setup.sh

# The file whose lines are counted.
declare -A parsers=(
  [bookmark]=src/platform/linux/FolderGrant.cpp
  [bridge_reply]=src/lut/BridgeExchange.cpp
  [companion_request]=companion/CompanionRequest.cpp
  [cube_lattice]=src/lut/CubeReader.cpp
  [installed_record]=src/services/UniversalInstalledRecord.cpp
  [lut_header]=src/engines/LUTHeader.cpp
  [mpv_message]=src/platform/hosts/MpvMessage.cpp
  [pack_catalog]=src/services/UniversalPackCatalog.cpp
  [property_list]=src/base/BinaryPropertyList.cpp
  [release_manifest]=src/services/ReleaseManifest.cpp
  [speed_curve]=src/speed/SpeedCurve.cpp
  [strings_file]=src/base/StringsFile.cpp
)
seconds=30 keep=
for argument; do
  case $argument in
    --keep) keep=1 ;;
    -h | --help) sed -n '2,5s/^# //p' "$0" && exit 0 ;;
    *[!0-9]* | "") sed -n '2,5s/^# //p' "$0" >&2 && exit 2 ;;
    *) seconds=$argument ;;
  esac
done

need "${packages_build[@]}" "${packages_fuzz[@]}"
mapfile -t names < <(printf '%s\n' "${!parsers[@]}" | sort)
build fuzz "${names[@]/#/fuzz_}" >/dev/null
made=build/fuzz/made
mkdir -p build/fuzz/crashes
failed=0
for name in "${names[@]}"; do
  program=build/fuzz/tests/fuzz_$name
  mkdir -p "$made/$name"
  code=0
  LLVM_PROFILE_FILE=build/fuzz/$name.profraw "$program" -max_total_time="$seconds" -max_len=4096 \
    -print_final_stats=1 -artifact_prefix="build/fuzz/crashes/$name-" "$made/$name" "tests/fuzz/$name" \
    >"build/fuzz/$name.log" 2>&1 || code=1
  runs=$(sed -n 's/^stat::number_of_executed_units: //p' "build/fuzz/$name.log")
  edges=$(sed -n 's/.* cov: \([0-9]*\) .*/\1/p' "build/fuzz/$name.log" | tail -n 1)
  lines=unknown
  if ((code == 0)); then
    llvm-profdata-19 merge -o "build/fuzz/$name.profdata" "build/fuzz/$name.profraw"
    lines=$(llvm-cov-19 report "$program" -instr-profile="build/fuzz/$name.profdata" "${parsers[$name]}" |
      awk '$1 == "TOTAL" { print $8 - $9 " of " $8 }')
  fi
  printf '%-42s %s lines of %s, %s edges in all, %s runs, %d failures\n' "fuzz $name" "$lines" \
    "$(basename "${parsers[$name]}")" "$edges" "${runs:-0}" "$code"
  ((code)) && tail -n 20 "build/fuzz/$name.log" >&2
  ((failed += code)) || true
  if [[ $keep ]]; then
    "$program" -set_cover_merge=1 -max_len=4096 "tests/fuzz/$name" "$made/$name" >/dev/null 2>&1
  fi
done
((failed == 0))
