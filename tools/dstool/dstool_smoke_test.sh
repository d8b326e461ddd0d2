#!/usr/bin/env bash
# dstool on the samples: every command answers with the exit status it
# promises, and what it writes has the shape it promises.
#   dstool_smoke_test.sh DSTOOL SAMPLEGEN WORKDIR
set -uo pipefail
dstool=$1 samplegen=$2 work=$3
rm -rf "$work" && mkdir -p "$work" || exit 1
failures=0
expect() {  # expect STATUS WHAT COMMAND...
  local want=$1 what=$2; shift 2
  "$@" >"$work/out" 2>"$work/err"
  local got=$?
  if [ "$got" -ne "$want" ]; then
    echo "FAIL: $what: exit $got, wanted $want"; cat "$work/err"; failures=$((failures + 1))
  fi
}
check() {  # check WHAT CONDITION...
  local what=$1; shift
  if ! "$@"; then echo "FAIL: $what"; failures=$((failures + 1)); fi
}

expect 0 "samplegen" "$samplegen" "$work"
expect 0 "info" "$dstool" info "$work/grating.tef"
check "info names both channels" grep -q "channel 1: Phase" "$work/out"
expect 0 "info --json" "$dstool" info "$work/grating.tef" --json
check "json tells the kind" grep -q '"kind": "image"' "$work/out"
check "json tells the unit of the phase" grep -q '"metric": "deg"' "$work/out"
expect 0 "export png" "$dstool" export "$work/grating.tef" --channel 0 --png "$work/t.png"
check "png signature" cmp -s -n 8 "$work/t.png" <(printf '\x89PNG\r\n\x1a\n')
expect 0 "export csv" "$dstool" export "$work/grating_12bit.tef" --channel=0 --csv "$work/t.csv" --raw
check "csv has one line per image row" test "$(wc -l <"$work/t.csv")" -eq 256
check "csv has one value per sample" test "$(head -n 1 "$work/t.csv" | tr ',' '\n' | wc -l)" -eq 256

printf 'not a scan' >"$work/refused.tef"
expect 1 "refused file" "$dstool" info "$work/refused.tef"
check "refusal names the library's reason" grep -q "Expecting document data, file misaligned" "$work/err"
expect 1 "missing file" "$dstool" info "$work/missing.tef"
expect 1 "channel beyond the file" "$dstool" export "$work/grating.tef" --channel 2 --png "$work/x.png"
expect 2 "no file" "$dstool" info
expect 2 "unknown option" "$dstool" info "$work/grating.tef" --colour
expect 2 "two formats" "$dstool" export "$work/grating.tef" --channel 0 --png a --csv b
expect 2 "two unit choices" "$dstool" export "$work/grating.tef" --channel 0 --csv a --raw --volts
expect 2 "channel not a number" "$dstool" export "$work/grating.tef" --channel -1 --csv a
expect 2 "unknown command" "$dstool" plot
expect 0 "help of a command" "$dstool" export --help
check "help shows the usage" grep -q "^usage: dstool export" "$work/out"

expect 0 "set-note" "$dstool" set-note "$work/grating.tef" "Calibration grating" "$work/noted.tef"
check "the note stands at the head of the file" test "$(head -c 19 "$work/noted.tef")" = "Calibration grating"
check "the rest of the file is as it was" cmp -s -i 79 "$work/grating.tef" "$work/noted.tef"
expect 0 "info on the noted file" "$dstool" info "$work/noted.tef"
expect 0 "set-note over the file itself" "$dstool" set-note "$work/noted.tef" "" "$work/noted.tef"
check "an empty note clears the area" test "$(head -c 78 "$work/noted.tef" | tr -d '\0' | wc -c)" -eq 0
expect 0 "extract" "$dstool" extract "$work/grating_12bit.tef" --channel 0 "$work/topography.tef"
check "extract writes a file smaller than the two channels" \
  test "$(wc -c <"$work/topography.tef")" -lt "$(wc -c <"$work/grating_12bit.tef")"
expect 1 "extract beyond the channels" "$dstool" extract "$work/grating.tef" --channel 2 "$work/none.tef"
check "nothing is written for a channel beyond" test ! -e "$work/none.tef"
expect 1 "set-note on a file of another family" "$dstool" set-note "$work/quillon_image.qdf" "x" "$work/x.qdf"
expect 1 "set-note into a folder that does not exist" "$dstool" set-note "$work/grating.tef" "x" "$work/no/x.tef"
expect 2 "set-note without OUT" "$dstool" set-note "$work/grating.tef" "x"
expect 2 "extract without --channel" "$dstool" extract "$work/grating.tef" "$work/x.tef"

[ "$failures" -eq 0 ] && echo "dstool: all checks passed"
exit $((failures > 0))
