#!/usr/bin/env python3
"""Answers a file of requests on all machines of a Dask cluster, in the order of the requests.

    answer_requests.py SCHEDULER REQUESTS [BYTES] >ANSWERS

SCHEDULER is the address that dask-scheduler prints, or the file that it writes with
--scheduler-file. The requests are cut at line ends into parts of about BYTES (64 million), and each
part goes through `qxmix batch` on some machine. A part whose machine is lost is done again on
another one. Ends with the status of qxmix batch: 2 when some line was bad.
"""

import collections
import os
import subprocess
import sys

import distributed


def parts_of(path, size):
    """The file in parts that end with a line, read as they are needed."""
    with open(path, "rb") as requests:
        while part := requests.read(size):
            yield part + requests.readline()


def answer(part):
    """Runs on a machine of the cluster."""
    done = subprocess.run(["qxmix", "batch"], input=part, capture_output=True, check=False)
    if done.returncode not in (0, 2):
        raise RuntimeError(f"qxmix batch: {done.stderr.decode(errors='replace')}")
    return done.stdout, done.returncode


def in_order(client, parts):
    """The answers to the parts in their order. A few parts more than there are workers are under
    way, so that neither requests nor answers ever pile up."""
    under_way = collections.deque()
    for part in parts:
        # The same part twice in a file is asked twice: a key of its own for each.
        under_way.append(client.submit(answer, part, pure=False))
        while len(under_way) >= 2 * len(client.scheduler_info()["workers"]) + 2:
            yield under_way.popleft().result()
    while under_way:
        yield under_way.popleft().result()


def main(scheduler, requests, size="64000000"):
    place = {"scheduler_file": scheduler} if os.path.exists(scheduler) else {"address": scheduler}
    status = 0
    with distributed.Client(**place) as client:
        for answers, part_status in in_order(client, parts_of(requests, int(size))):
            sys.stdout.buffer.write(answers)
            status = max(status, part_status)
    return status


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
