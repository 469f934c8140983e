#!/usr/bin/env bash
# The same with the command line and GNU parallel: parallel.sh STORE OUTPUT.csv YYYY-MM-DD PARTS
# As many parts at once as there are processors; --sshloginfile HOSTS takes other machines, which see
# STORE and the parts under the same names. A part that fails is tried again; a run that was broken off
# goes on with the parts that are missing.
set -euo pipefail
[ $# -eq 4 ] || { echo "usage: parallel.sh STORE OUTPUT.csv YYYY-MM-DD PARTS" >&2; exit 2; }
store=$1 output=$2 day=$3 parts=$4
folder=$output.shards
mkdir -p "$folder"

part() { # STORE DAY I N PART
  [ -e "$5" ] && return
  local status=0
  zrcreditbureau translate "$1" --service VedaXMLAU --product consumer-enquiry --date "$2" --shard "$3/$4" \
    --format csv --fields lines --quiet --output "$5.csv" || status=$?
  [ $status -le 1 ] || return $status # 1: a reply failed, which was told
  [ $status -eq 0 ] || : >"$5.failed"
  mv "$5.csv" "$5"
}
export -f part

seq "$parts" | parallel --will-cite --retries 3 part "$store" "$day" {} "$parts" "$folder/"'{= $_ = sprintf("%06d", $_) =}'
failed=0
for number in $(seq -f %06.0f "$parts"); do
  cat "$folder/$number"
  [ ! -e "$folder/$number.failed" ] || failed=1
done >"$output.part"
mv "$output.part" "$output"
rm -r "$folder"
exit $failed
