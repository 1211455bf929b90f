#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# What an engineer does with the programs in a terminal, once, against a simulated controller: who is it, in what does the
# document differ, send only that, read it back, take it back, write it down; values to a spreadsheet and back. Each call
# has its exit code and says what it should; looking at the controller writes nothing. Ends with 0 only if all of that holds.
#   tests/package/calls.sh FOLDER      the folder of zorvanectl, zorvane-sim and the templates
set -euo pipefail

programs=$(cd "${1:?"usage: tests/package/calls.sh FOLDER"}" && pwd)
model=KVRT207D
template=$programs/$model.ZTP
folder=$(mktemp -d)
export XDG_STATE_HOME=$folder/state
sim=''

end() {
    [[ -z $sim ]] || kill "$sim" 2>/dev/null || true
    rm -rf "$folder"
}
trap end EXIT

complain() {
    printf 'calls.sh: %s\n' "$*" >&2
    exit 1
}

# call EXIT WORDS...: zorvanectl ends with that code; what it says is in $folder/said.
call() {
    local wanted=$1 code=0
    shift
    "$programs/zorvanectl" "$@" >"$folder/said" 2>"$folder/notes" || code=$?
    [[ $code -eq $wanted ]] ||
        complain "$* ended with $code, not $wanted: $(cat "$folder/said" "$folder/notes")"
}

says() {
    grep -qF -- "$1" "$folder/said" || complain "\"$1\" isn't in: $(cat "$folder/said")"
}

writes() {
    grep -cE '"direction":"in".*"function":(6|16)[,}]' "$folder/log" || true
}

expect_writes() {
    [[ $(writes) -eq $1 ]] || complain "$2: the controller saw $(writes) writes, not $1"
}

cp "$programs/EXAMPLE.$model" "$folder/site.$model"
exec {answers}< <(exec "$programs/zorvane-sim" --template "$template" --config "$programs/EXAMPLE.$model" \
    --pty "$folder/port" --log "$folder/log" 2>&1)
sim=$!
read -r -t 20 ready <&"$answers" || complain 'the simulator did not start'
[[ $ready == ready* ]] || complain "the simulator said: $ready"
line=(--port "$folder/port")
document=("$template" "$folder/site.$model")

printf 'identify, compare\n'
call 0 identify "$template" "${line[@]}"
says "The controller at unit 1 is a $model."
call 0 compare "${document[@]}" "${line[@]}"
call 0 set "${document[@]}" 'Regulation/Set point' 1200 --save "$folder/changed.$model"
document=("$template" "$folder/changed.$model")
call 3 compare "${document[@]}" "${line[@]}"
says '1 differs'

printf 'plan, send, verify, restore\n'
call 3 plan "${document[@]}" "${line[@]}" --out "$folder/plan.json"
call 2 send "${document[@]}" "${line[@]}" </dev/null
expect_writes 0 'before a send'
call 0 send "${document[@]}" "${line[@]}" --plan "$folder/plan.json" --json
says '"verified": 1,'
expect_writes 1 'after a send of one value'
call 0 compare "${document[@]}" "${line[@]}"
call 0 send "${document[@]}" "${line[@]}" --plan "$folder/plan.json"
expect_writes 1 'the plan sent once more'
run=$(ls -t "$XDG_STATE_HOME/zorvane/runs" | tail -n 1)
call 0 verify "$run" "${line[@]}"
call 0 record "$run" --out "$folder/record.pdf" --site 'Site 7'
[[ $(head -c 5 "$folder/record.pdf") == %PDF- ]] || complain 'the record is no PDF file'
call 0 restore "$run" "${line[@]}"
call 3 compare "${document[@]}" "${line[@]}"
expect_writes 2 'after it was taken back'

printf 'export, import\n'
call 0 export "${document[@]}" --out "$folder/values.csv"
grep -q ',250,1200' "$folder/values.csv" || complain 'the exported file has no 1200 for register 250'
sed 's/,250,1200/,250,1300/' "$folder/values.csv" >"$folder/edited.csv"
call 0 import "${document[@]}" "$folder/edited.csv" --save "$folder/imported.$model"
call 3 compare "$template" "$folder/imported.$model" --with "$folder/changed.$model"
says '1 differs'
