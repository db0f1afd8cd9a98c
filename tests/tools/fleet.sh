#!/usr/bin/env bash
# fleet.sh DOCUMENT TOOL
# Runs the commands of GNU parallel that the document shows. In place of ssh stands a script that runs
# what it is given in another folder of this machine, one for each host: what one cleans up is its own. As sshd does, it sets SHELL: GNU parallel has the
# other side start that, and a machine that tests need not have it set.
set -euo pipefail
document=$1 tool=$2
if ! command -v parallel >/dev/null || ! command -v rsync >/dev/null; then
    echo "skipped: needs the packages parallel and rsync"
    exit 77
fi
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/here/requests" "$work/there/one" "$work/there/two" "$work/bin"
ln -s "$tool" "$work/bin/qxmix"
cat >"$work/bin/ssh" <<END
#!/usr/bin/env bash
while [[ \$1 == -* ]]; do
    case \$1 in -l | -p | -o) shift ;; esac
    shift
done
host=\$1
echo "\$host" >>"$work/asked"
shift
[[ \$1 == -- ]] && shift
cd "$work/there/\$host"
export SHELL=/bin/bash
exec bash -c "\$*"
END
chmod +x "$work/bin/ssh"
export PATH="$work/bin:$PATH" HOME="$work" LC_ALL=C
mkdir "$work/.parallel" && touch "$work/.parallel/will-cite"

# More than one part of 64 MB would take long: the size is the only thing that is changed.
mapfile -t commands < <(sed -n '/^parallel /,/[^\\]$/p' "$document" | sed 's/--block 64M/--block 10k/' |
    sed -e ':whole' -e '/\\$/N; s/\\\n//; t whole')
[ ${#commands[@]} -eq 2 ] || { echo "${#commands[@]} commands in $document; expected 2"; exit 1; }

cd "$work/here"
printf '%s\n' 1/one 1/two >hosts
for id in $(seq 600); do
    echo "{\"id\":$id,\"dispenser\":\"EUR:100x300,50x1200,20x2400,10x60:low\",\"amount\":$((id * 5))}"
done >requests.ndjson
qxmix batch <requests.ndjson >expected
split -n l/4 --additional-suffix=.ndjson requests.ndjson requests/

bash -c "${commands[0]}"
cmp answers.ndjson expected
bash -c "${commands[1]}"
cat requests/*.answers | cmp - expected
[ "$(sort -u "$work/asked" | tr '\n' ' ')" = "one two " ] || { echo "hosts asked:"; cat "$work/asked"; exit 1; }
[ -z "$(find "$work/there" -mindepth 2)" ] || { echo "left behind:"; ls -R "$work/there"; exit 1; }
echo "both commands answer all requests, on both hosts"
