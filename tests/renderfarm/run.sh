#!/usr/bin/env bash
# A film on a farm: Slurm on this machine, with a configuration of its own in a temporary folder, runs the job files of examples/farms.
# One task is killed and comes back, one of the two nodes is drained in the middle and returns; what is there at the end is what a
# single run makes, byte for byte. Before, the tasks of the Open Job Description template are checked and run, without any scheduler.
#
#   tests/renderfarm/run.sh FOLDER_OF_QUARVEL ANIMATION.json
#
# Exit code 77 says that Slurm cannot run here, with the reason.
set -euo pipefail
programs=$(realpath "$1")
animation=$(realpath "$2")
farms=$(cd "$(dirname "$0")/../../examples/farms" && pwd)
jobs=$farms/slurm
PATH=$programs:/usr/sbin:/sbin:$PATH
unset "${!SLURM@}" "${!SBATCH@}"

work=$(mktemp -d "${TMPDIR:-/tmp}/vallorin-farm.XXXXXX")
daemons=()
finish() {
    local status=$?
    trap - EXIT
    # A job that still runs would keep its node's daemon.
    [ ! -e "$work/running" ] || scancel --user="$(id -un)" 2>/dev/null || true
    for ((i = ${#daemons[@]} - 1; i >= 0; --i)); do
        kill "${daemons[i]}" 2>/dev/null || true
        wait "${daemons[i]}" 2>/dev/null || true
    done
    if [ $status -ne 0 ] && [ $status -ne 77 ]; then
        echo "farm: what the daemons said is in $work" >&2
    else
        rm -rf "$work"
    fi
    exit $status
}
trap finish EXIT
failed() {
    echo "farm: $1" >&2
    exit 1
}

# patiently SECONDS WHAT COMMAND...: tries until the command succeeds; a limit for what hangs, not for what is slow.
patiently() {
    local end=$((SECONDS + $1)) what=$2
    shift 2
    until "$@"; do
        [ $SECONDS -lt $end ] || {
            echo "farm: waited in vain for $what" >&2
            return 1
        }
        sleep 0.1
    done
}

# --- Slurm ---------------------------------------------------------------------------------------------------------------------

cannot() {
    echo "farm: Slurm cannot run here: $1"
    [ ! -s "$2" ] || tail -n 3 "$2"
    exit 77
}

free_ports() {
    /usr/bin/python3 -c 'import socket
sockets = [socket.socket() for _ in range(3)]
for s in sockets: s.bind(("127.0.0.1", 0))
print(*(s.getsockname()[1] for s in sockets))'
}

start_slurm() {
    local me host controller first second
    me=$(id -un)
    host=$(hostname -s)
    read -r controller first second < <(free_ports)
    export SLURM_CONF=$work/slurm.conf
    mkdir -p "$work"/{munge,state,farm1,farm2,log}
    chmod 700 "$work/munge"
    head -c 1024 /dev/urandom >"$work/munge/key"
    chmod 400 "$work/munge/key"
    cat >"$SLURM_CONF" <<CONF
ClusterName=farm
SlurmctldHost=$host(127.0.0.1)
SlurmctldPort=$controller
SlurmUser=$me
SlurmdUser=$me
AuthType=auth/munge
AuthInfo=socket=$work/munge/socket
StateSaveLocation=$work/state
SlurmdSpoolDir=$work/%n
SlurmctldPidFile=$work/slurmctld.pid
SlurmdPidFile=$work/%n.pid
ProctrackType=proctrack/linuxproc
TaskPlugin=task/none
SelectType=select/cons_tres
SelectTypeParameters=CR_Core_Memory
JobAcctGatherType=jobacct_gather/none
AccountingStorageType=accounting_storage/none
SlurmdParameters=config_overrides
SchedulerParameters=sched_interval=2,batch_sched_delay=0
MpiDefault=none
ReturnToService=2
MinJobAge=86400
KillWait=10
NodeName=farm1 NodeHostname=$host NodeAddr=127.0.0.1 Port=$first CPUs=1 RealMemory=2048 State=UNKNOWN
NodeName=farm2 NodeHostname=$host NodeAddr=127.0.0.1 Port=$second CPUs=1 RealMemory=2048 State=UNKNOWN
PartitionName=all Nodes=ALL Default=YES MaxTime=INFINITE State=UP
CONF
    munged --foreground --force --key-file="$work/munge/key" --socket="$work/munge/socket" --pid-file="$work/munge/pid" \
        --log-file="$work/munge/log" --seed-file="$work/munge/seed" 2>"$work/log/munged" &
    daemons+=($!)
    patiently 20 munged test -S "$work/munge/socket" || cannot "munged does not start" "$work/log/munged"
    slurmctld -D >"$work/log/slurmctld" 2>&1 &
    daemons+=($!)
    patiently 60 slurmctld sh -c 'sinfo >/dev/null 2>&1' || cannot "slurmctld does not start" "$work/log/slurmctld"
    local node
    for node in farm1 farm2; do
        slurmd -D -N $node >"$work/log/$node" 2>&1 &
        daemons+=($!)
    done
    for node in farm1 farm2; do
        patiently 60 "node $node" node_is $node idle || cannot "slurmd does not start" "$work/log/$node"
    done
    touch "$work/running"
}

node_is() { [ "$(sinfo --noheader --nodes="$1" --format=%T)" = "$2" ]; }
tasks_in() { squeue --noheader --array --job="$1" --states="$2" --format=%i 2>/dev/null | wc -l; }
none_left() { [ -z "$(squeue --noheader --job="$1" --format=%i 2>/dev/null)" ]; }
task_field() { scontrol show job "$1" | tr ' ' '\n' | sed -n "s/^$2=//p" | head -n 1; }

# --- The film ------------------------------------------------------------------------------------------------------------------

# A program of the same name before quarvel in the path: in its first life task 2 stops when its first frame is there, so that it is
# killed in the middle, however fast the machine is.
make_task_2_wait() {
    mkdir "$work/bin"
    cat >"$work/bin/quarvel" <<WRAPPER
#!/bin/bash
[ "\${SLURM_ARRAY_TASK_ID:-}" = 2 ] && [ -z "\${SLURM_RESTART_COUNT:-}" ] || exec "$programs/quarvel" "\$@"
"$programs/quarvel" "\$@" &
until [ -e "$work/out/n.0003.exr" ]; do sleep 0.01; done
kill -STOP \$!
touch "$work/waits"
wait \$!
WRAPPER
    chmod +x "$work/bin/quarvel"
    PATH=$work/bin:$PATH
}

cd "$work"
"$programs/quarvel" import "$animation" -o film.scene >/dev/null
"$programs/quarvel" set film.scene frames 1-48 >/dev/null
mkdir out single openjd
"$programs/quarvel" render film.scene -o 'single/n.####.exr' --preview single.png --progress none >/dev/null
[ "$(ls single | wc -l)" -eq 48 ] || failed "the single run made $(ls single | wc -l) of 48 frames"

/usr/bin/python3 "$farms/../../tests/renderfarm/openjd.py" "$farms/openjd/template.yaml" "$programs/quarvel" film.scene openjd 5
cmp single.png openjd/lit.png && rm openjd/lit.png
diff -rq single openjd >differences || failed "the frames of the Open Job Description are not those of a single run: $(head -n 3 differences)"

start_slurm
make_task_2_wait
array=$(sbatch --parsable "$jobs/render.sbatch" film.scene 'out/n.####.exr')
preview=$(sbatch --parsable --dependency="afterok:$array" "$jobs/preview.sbatch" film.scene lit.png)
patiently 600 "task 2 to render its first frame" test -e waits
holder=$(task_field "${array}_2" NodeList)
other=farm1
[ "$holder" != farm1 ] || other=farm2

# A node is drained in the middle: what runs there ends, nothing new begins.
scontrol update nodename=$other state=drain reason="test"
patiently 600 "$other to be drained" node_is $other drained
waiting=$(tasks_in "$array" PENDING)
[ "$waiting" -gt 0 ] || failed "no task waited while $other was drained"
[ "$(squeue --noheader --nodelist=$other --format=%i | wc -l)" -eq 0 ] || failed "a task runs on the drained node"

# A task is killed, and comes back.
scontrol requeue "${array}_2"
patiently 60 "task 2 to be back in the queue" sh -c "[ \"\$(squeue --noheader --array --job=${array}_2 --format=%t)\" = PD ]"
[ "$(ls out/n.*.exr | wc -l)" -lt 48 ] || failed "all frames were there before task 2 ended"
scontrol update jobid="${array}_2" starttime=now
scontrol update nodename=$other state=resume

patiently 900 "the tasks" none_left "$array"
patiently 600 "the preview" none_left "$preview"

# --- What came of it -----------------------------------------------------------------------------------------------------------

for task in 0 1 2 3 4 5 6 7; do
    [ "$(task_field "${array}_$task" JobState)" = COMPLETED ] || failed "task $task ended as $(task_field "${array}_$task" JobState)"
done
[ "$(task_field "${array}_2" Restarts)" = 1 ] || failed "task 2 was not started again"
grep -q ' complete already' "normals_${array}_2.log" || failed "task 2 said nothing of what it found"
find out -type f ! -name 'n.[0-9][0-9][0-9][0-9].exr' | grep -q . && failed "files were left over: $(ls out)"
diff -rq single out >differences || failed "the frames are not those of a single run: $(head -n 3 differences)"
cmp single.png lit.png || failed "the preview is not that of a single run"
echo "farm: Slurm $(sinfo --version | cut -d' ' -f2), 8 tasks on 2 nodes, one task killed and requeued, one node drained and" \
    "resumed; Open Job Description: 5 tasks; each time 48 frames and the preview are those of a single run, byte for byte"
