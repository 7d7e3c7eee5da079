#!/usr/bin/env bash
# Cuts the user's guide's pictures out of those that ./run leaves. Where a window lies is
# settled by the desk; who moves one there looks at the pictures here afterwards.
#   ./run && scripts/guide-pictures.sh
set -euo pipefail
cd "$(dirname "$0")/.."

# cut DESK NAME WIDTHxHEIGHT+LEFT+TOP: a part of one picture of the desk
cut() {
    local from=out/$1.png to=docs/user/pictures/$2.png
    [ -s "$from" ] || { echo "guide-pictures: $from is missing; ./run makes it" >&2; exit 1; }
    convert "$from" -crop "$3" +repage -strip -define png:exclude-chunks=date,time +dither -colors 64 "PNG8:$to"
    echo "$to: $(stat -c %s "$to") bytes"
}

mkdir -p docs/user/pictures
cut desk call 714x546+0+0
cut desk call-notes 404x364+878+0
cut desk journal 714x316+305+432
cut desk-forwarded forwarded 1020x420+315+0
cut desk-question icon 92x44+1508+724
cut desk-question question 258x108+670+320
