#!/usr/bin/env python3
"""Runs the network demonstration's server and client as two processes,
headless, over loopback, and checks that they keep one world: every frame the
client applies holds the objects the server sent in that frame, each at the
same place to the last bit, through moves, bounces and renewals. Both must
exit 0 with no "Error!" line in their logs.

    network_demo_keeps_step.py NETWORK_DEMO DEMO_CONFIG OUTPUT_FOLDER
"""

import os
import re
import subprocess
import sys

# Enough frames for two renewals, one every hundred.
FRAMES = 250
TIMEOUT = 120


class Failure(Exception):
    pass


def trace_lines(output):
    """Frame number and line of each frame the process traced."""
    frames = []
    for line in output.splitlines():
        found = re.match(r"step (\d+):", line)
        if found:
            frames.append((int(found.group(1)), line))
    return frames


def objects_of(line):
    """The id and place of each object in a traced frame."""
    return dict(re.findall(r" (\d+)@(\([^)]*\))", line))


def check(server_out, client_out, logs):
    sent = dict(trace_lines(server_out))
    applied = trace_lines(client_out)
    if len(applied) != FRAMES:
        raise Failure(f"the client applied {len(applied)} frames, not {FRAMES}")
    steps = [step for step, _ in applied]
    if steps != list(range(steps[0], steps[0] + FRAMES)):
        raise Failure(f"the client's frames are not one run of steps: {steps[:10]}...")
    for step, line in applied:
        if sent.get(step) != line:
            raise Failure(f"out of step at {step}:\n  server {sent.get(step)}\n  client {line}")
    first, last = objects_of(applied[0][1]), objects_of(applied[-1][1])
    if len(first) < 2 or first == last:
        raise Failure("the objects did not move")
    if set(first) == set(last):
        raise Failure("no object was renewed while the client watched")
    for log in logs:
        with open(log) as f:
            errors = [line for line in f if "Error!" in line]
        if errors:
            raise Failure(f"{log} has errors: {errors[:3]}")


def main():
    demo, demo_config, output = sys.argv[1:4]
    os.makedirs(output, exist_ok=True)
    config = os.path.join(output, "mv-config.txt")
    with open(demo_config) as f:
        settings = f.read()
    with open(config, "w") as f:
        f.write(settings + "headless:true,frame_time:10,\n")
    server_log = os.path.join(output, "network-server.log")
    client_log = os.path.join(output, "network-client.log")
    environment = dict(os.environ, MORVANE_CONFIG=config)

    server = subprocess.Popen(
        [demo, "server", "--port", "0", "--trace", str(FRAMES)], stdout=subprocess.PIPE,
        text=True, env=dict(environment, MORVANE_LOG=server_log))
    try:
        first = server.stdout.readline()
        found = re.match(r"network_demo: serving on port (\d+)", first)
        if not found:
            raise Failure(f"the server did not say its port: {first!r}")
        client = subprocess.run(
            [demo, "client", "--port", found.group(1), "--trace", "1"], stdout=subprocess.PIPE,
            text=True, timeout=TIMEOUT, env=dict(environment, MORVANE_LOG=client_log))
        server_out, _ = server.communicate(timeout=TIMEOUT)
    finally:
        if server.poll() is None:
            server.kill()
    if server.returncode != 0 or client.returncode != 0:
        raise Failure(f"exit codes: server {server.returncode}, client {client.returncode}")
    check(server_out, client.stdout, [server_log, client_log])
    print(f"the client kept step with the server for {FRAMES} frames")


if __name__ == "__main__":
    try:
        main()
    except Failure as failure:
        print(f"FAILED: {failure}")
        sys.exit(1)
