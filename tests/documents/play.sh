#!/bin/bash
# Plays what README and docs show: every script runs to its end, every command is there with its options. And what the
# programs answer to arguments that make no sense, to lines that nobody can read, and to a person at a terminal.
#
#   play.sh SCAN-HOST SCAN-ANSWER
set -u
scan_host=$1
scan_answer=$2
project=$(cd "$(dirname "$0")/../.." && pwd)
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
failures=0
scripts=0
commands=0

fail() {
  printf 'failed: %s\n' "$*"
  failures=$((failures + 1))
}

# blocks FILE: lays each code block, fenced or indented, into a file of its own; its first line tells the fence's word.
blocks() {
  awk -v out="$place/block" '
    function begin(word) { inside = 1; file = sprintf("%s-%03d", out, ++count); print word > file }
    /^```/ { if (fenced) { fenced = inside = 0; close(file) } else { fenced = 1; begin(substr($0, 4)) } next }
    fenced { print > file; next }
    /^    / && (inside || blank) { if (!inside) begin(""); print substr($0, 5) > file; blank = 0; next }
    /^[[:space:]]*$/ { blank = 1; if (inside) print "" > file; next }
    { if (inside) close(file); inside = blank = 0 }' "$1"
}

is_statement() { printf '%s\n' "${statements[@]}" | grep -qx -- "$1"; }

# Options that the command's own help doesn't tell are a mistake of whoever wrote it down.
check_options() {
  local command=$1 help=$2 word
  for word in $command; do
    [[ $word != --* ]] || grep -q -- "$word" <<< "$help" || fail "$document: $command: no $word"
  done
}

play_command() {
  local command=${1%%  *} words  # what follows two blanks is said about it
  read -r -a words <<< "$command"
  commands=$((commands + 1))
  case $command in
    ./run\ --window*) check_options "$command" "$("$project/run" --window --help) --window" ;;
    ./run\ --scan*) check_options "$command" "$("$project/run" --scan --help) --scan" ;;
    ./run* | ./test*) check_options "$command" "$("$project/${words[0]}" --help)" ;;
    build/bin/scan-host*)
      (cd "$place" && timeout 60 "$scan_host" "${words[@]:1}" < /dev/null > said 2>&1) ||
        fail "$document: $command: $(tail -n 2 "$place/said")" ;;
    build/bin/scan-answer*) check_options "$command" "$("$scan_answer" --help)" ;;
    tools/*) [[ -x $project/${words[0]} ]] || fail "$document: there is no ${words[0]}" ;;
  esac
}

play_block() {
  local block=$1 word first line
  word=$(head -n 1 "$block")
  sed -i 1d "$block"
  first=$(grep -v -E '^(#|[[:space:]]*$)' "$block" | head -n 1)
  first=${first%% *}
  if [[ $word == scn ]] || { [[ -z $word ]] && is_statement "$first"; }; then
    scripts=$((scripts + 1))
    (cd "$project" && timeout 60 "$scan_host" "$block" > "$place/said" 2> "$place/complained") ||
      fail "$document: $(cat "$place/complained")" $'\n'"$(cat "$block")"
  elif [[ -z $word || $word == sh ]]; then
    while IFS= read -r line; do
      [[ $line =~ ^(\./run|\./test|build/bin/|tools/) ]] && play_command "$line"
    done < "$block"
  fi
}

mapfile -t statements < <(echo help | "$scan_host" | sed -n 's/^\([a-z]\+\)\( .*\)\?$/\1/p')
ln -s "$project/samples" "$project/tests" "$place"
for document in $(cd "$project" && ls README.md CONTRIBUTING.md docs/*.md 2> "$place/said"); do
  rm -f "$place"/block-*
  blocks "$project/$document"
  for block in "$place"/block-*; do [[ -e $block ]] && play_block "$block"; done
  while IFS= read -r command; do play_command "$command"; done < <(
    grep -o -E '`(\./run|\./test|build/bin/|tools/)[^`]*`' "$project/$document" | tr -d '`')
done
((scripts >= 5 && commands >= 10)) || fail "only $scripts scripts and $commands commands were found"

# refuses PROGRAM [ARGUMENT...]: usage on standard error, nothing else, status 2.
refuses() {
  "$@" < /dev/null > "$place/said" 2> "$place/complained"
  local status=$?
  [[ $status == 2 && ! -s $place/said ]] && grep -q -- --help "$place/complained" || fail "$* gave $status"
}

# helps PROGRAM [ARGUMENT...]
helps() {
  "$@" < /dev/null > "$place/said" 2> "$place/complained" && [[ -s $place/said && ! -s $place/complained ]] || fail "$*"
}

helps "$scan_host" --help
helps "$scan_answer" --help
helps "$project/run" --help
helps "$project/run" --window --help
helps "$project/test" --help
for arguments in --fly "one two" "--random x 10" "--random 1 0" "--random 1" "--language 70000" "--network none" --dir \
  "--record walk.scn" "--face sheet" "--random 1 10 --face side" "--random 1 10 script.scn"; do
  # shellcheck disable=SC2086
  refuses "$scan_host" $arguments
done
for arguments in --fly "--port 70000" "--address 1.2.3" --port "--bytes 123" "--fly 1"; do
  # shellcheck disable=SC2086
  refuses "$scan_answer" $arguments
done
for arguments in --fly fly "--window --fly" "--window --face side" "--window --page 2" "--window one two"; do
  # shellcheck disable=SC2086
  refuses "$project/run" $arguments
done
for arguments in fly "--lint now" "--sanitize x" "--windows --32" "--fuzz soon" --attack; do
  # shellcheck disable=SC2086
  refuses "$project/test" $arguments
done

# ends_with TEXT STATUS: what a script on standard input ends with.
ends_with() {
  local said status
  said=$(timeout 60 "$scan_host" 2>&1 > /dev/null)
  status=$?
  [[ $status == "$2" && $said == *"$1"* ]] || fail "wanted $1 and $2, got $said and $status"
}

{ echo open; head -c 1000000 /dev/zero | tr '\0' x; } | ends_with "error 2: the line is too long" 1
printf 'open\nshow dpi' | ends_with "" 0
"$scan_host" "$project/samples/tuor.scn" 2>&1 | grep -q "did you mean .*samples/tour.scn?" || fail "no hint at a script"

# A person at a terminal, who presses Tab.
if ldd "$scan_host" | grep -q libedit && command -v script > /dev/null; then
  printf '%s\n' $'op\t' $'pick 1210 "300\t' 'show dpi' 'click 5002' 'click 2' 'exit' |
    TERM=xterm timeout 60 script -qec "$scan_host" /dev/null > "$place/said" 2>&1
  for line in "dpi=300" "\`click 2\` (取消) leaves it" "dialog 104 closed 2"; do
    grep -qF -- "$line" "$place/said" || fail "the terminal doesn't say: $line"
  done
fi

echo "$scripts scripts, $commands commands, $failures failures"
[[ $failures == 0 ]]
