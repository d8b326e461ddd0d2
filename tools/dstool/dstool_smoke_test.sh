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
samples=("$work"/*.tef "$work"/*.qdf "$work"/*.hdf)
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
expect 0 "extract of the phase" "$dstool" extract "$work/grating.tef" --channel 1 "$work/phase.tef"
expect 0 "the extracted channel opens on its own" "$dstool" info "$work/phase.tef"
check "the extracted file has the phase as its only channel" grep -q "^channels: *1" "$work/out"
expect 1 "extract beyond the channels" "$dstool" extract "$work/grating.tef" --channel 2 "$work/none.tef"
check "nothing is written for a channel beyond" test ! -e "$work/none.tef"
expect 1 "set-note on a file of another family" "$dstool" set-note "$work/quillon_image.qdf" "x" "$work/x.qdf"
expect 1 "set-note into a folder that does not exist" "$dstool" set-note "$work/grating.tef" "x" "$work/no/x.tef"
expect 2 "set-note without OUT" "$dstool" set-note "$work/grating.tef" "x"
expect 2 "extract without --channel" "$dstool" extract "$work/grating.tef" "$work/x.tef"

# Every sample of every family and kind opens, and info tells its kind's parts.
check "samplegen writes samples of every family" test "${#samples[@]}" -ge 14
for sample in "${samples[@]}"; do
  expect 0 "info $(basename "$sample")" "$dstool" info "$sample"
  check "info of $(basename "$sample") names its kind" grep -q "^kind: " "$work/out"
  expect 0 "info --json $(basename "$sample")" "$dstool" info "$sample" --json
done
info_has() {  # info_has SAMPLE PATTERN: a line of info on the sample matches
  "$dstool" info "$work/$1" >"$work/info" 2>&1 && grep -qE "$2" "$work/info"
}
check "image: family and type text" info_has quillon_image.qdf '^family: +Quillon \(type text "Quillon Data File"\)'
check "image: the phase channel" info_has quillon_image_32bit.qdf '^channel 1: Phase'
check "force: the hold section" info_has quillon_force.qdf '^hold: +256 points, 0.5 s'
check "force: the spring constant" info_has quillon_force.qdf '^  spring constant: +0.4 N/m'
check "force volume: a curve a pixel" info_has quillon_fvol.qdf '^curves: +256 \(forces per line 256\)'
check "capture: the tapping frequency" info_has quillon_fvol_capture.qdf '^capture: +on, tapping frequency 2000 Hz'
check "script: the hold segment" info_has quillon_script.qdf '^  1  Hold Z +200 samples  0.5 s'
check "high-speed: the rate" info_has quillon_hsdc.qdf '^  high-speed rate: +6.25e\+06 Hz'
check "timed: the kind" info_has quillon_timed.qdf '^kind: +timed'
check "electrochemistry: the kind" info_has quillon_ecafm.qdf '^kind: +electrochemistry AFM'
check "Harlen: the family" info_has harlen_force_16labels.hdf '^family: +Harlen'
expect 0 "info --json of the script" "$dstool" info "$work/quillon_script.qdf" --json
check "json lists the segments" grep -q '"description": "Retract Z"' "$work/out"

# Curves of each kind, as plots and as values.
expect 0 "curve of the force file" "$dstool" curve "$work/quillon_force.qdf" --png "$work/force.png"
check "curve png signature" cmp -s -n 8 "$work/force.png" <(printf '\x89PNG\r\n\x1a\n')
expect 0 "curve csv of the force file" "$dstool" curve "$work/quillon_force.qdf" --channel 1 --csv "$work/force.csv"
check "curve csv header" test "$(head -n 1 "$work/force.csv")" = "series,point,ramp point,Height Sensor (nm)"
check "curve csv has both halves" test "$(grep -c '^retract,' "$work/force.csv")" -eq 512
expect 0 "curve of a force volume in force" "$dstool" curve "$work/quillon_fvol.qdf" --index 255 --force --csv "$work/fv.csv"
check "force volume curve in nN" grep -q '^series,point,ramp point,Deflection Error (nN)$' "$work/fv.csv"
expect 0 "curve of a force volume as png" "$dstool" curve "$work/quillon_fvol.qdf" --index 17 --png "$work/fv.png"
expect 1 "curve beyond the force volume" "$dstool" curve "$work/quillon_fvol.qdf" --index 256 --png "$work/x.png"
expect 0 "curve against the capture's Z" "$dstool" curve "$work/quillon_fvol_capture.qdf" --index 9 --csv "$work/capture.csv"
check "capture Z is the axis" grep -q '^series,point,capture Z (nm),' "$work/capture.csv"
expect 0 "one script segment" "$dstool" curve "$work/quillon_script.qdf" --index 1 --csv "$work/segment.csv"
check "the segment's samples" test "$(grep -c '^1 Hold Z,' "$work/segment.csv")" -eq 200
expect 0 "high-speed curve" "$dstool" curve "$work/quillon_hsdc.qdf" --channel 1 --csv "$work/hsdc.csv"
check "high-speed against time" grep -q "^series,point,time (µs),Z Sensor (nm)$" "$work/hsdc.csv"
expect 0 "Harlen force curve" "$dstool" curve "$work/harlen_force_8labels.hdf" --png "$work/harlen.png"
expect 1 "curve of an image" "$dstool" curve "$work/quillon_image.qdf" --png "$work/x.png"
expect 1 "force units of a script" "$dstool" curve "$work/quillon_script.qdf" --force --csv "$work/x.csv"
expect 2 "curve without output" "$dstool" curve "$work/quillon_force.qdf"
expect 2 "two unit choices for a curve" "$dstool" curve "$work/quillon_force.qdf" --png a --force --raw

# Sections and keys; a file written again.
expect 0 "dump" "$dstool" dump "$work/quillon_image.qdf"
check "dump lists the overview" grep -q '^QuillonFileOverviewInfo$' "$work/out"
check "dump gives values" grep -q '^  FileSubType = IMAGE$' "$work/out"
expect 1 "dump of a .tef file" "$dstool" dump "$work/grating.tef"
expect 0 "save" "$dstool" save "$work/quillon_force.qdf" "$work/saved.qdf"
expect 0 "curve of the saved file" "$dstool" curve "$work/saved.qdf" --channel 1 --csv "$work/saved.csv"
check "the saved curve is the curve" cmp -s "$work/force.csv" "$work/saved.csv"
expect 1 "save into a missing folder" "$dstool" save "$work/quillon_force.qdf" "$work/no/saved.qdf"

# A batch with one damaged file: the others are written, the damage is told.
head -c 5000 "$work/quillon_image.qdf" >"$work/damaged.qdf"
expect 1 "batch with a damaged file" "$dstool" export "$work/quillon_image.qdf" "$work/damaged.qdf" \
  "$work/harlen_image.hdf" "$work/quillon_fvol.qdf" --all-channels --out "$work/batch"
check "batch tells the damaged file" grep -q "damaged.qdf" "$work/err"
check "batch writes the good files" test -s "$work/batch/quillon_image_ch1.png" -a -s "$work/batch/harlen_image_ch0.png" \
  -a -s "$work/batch/quillon_fvol_ch0.png"
check "batch counts what it did" grep -q "^3 of 4 files exported" "$work/out"
check "no progress line off a terminal" test "$(tr -cd '\r\033' <"$work/out" | wc -c)" -eq 0
expect 0 "batch of values" "$dstool" export "$work/quillon_image.qdf" "$work/grating.tef" --channel 0 --out "$work/csv" --format csv
check "batch csv files" test -s "$work/csv/quillon_image_ch0.csv" -a -s "$work/csv/grating_ch0.csv"
expect 2 "all channels want a folder" "$dstool" export "$work/grating.tef" --all-channels --png "$work/x.png"
expect 2 "a folder and an output" "$dstool" export "$work/grating.tef" --channel 0 --out "$work/o" --png "$work/x.png"

[ "$failures" -eq 0 ] && echo "dstool: all checks passed"
exit $((failures > 0))
