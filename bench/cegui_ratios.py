#!/usr/bin/env python3
"""Runs the side-by-side benchmarks with CEGUI once and prints, for each, the
median CPU time of both toolkits and the ratio CEGUI / tavukit (above 1: the
toolkit is faster), then the cost of an unchanged frame's host calls alone
(BM_FrameHostCalls), the least any toolkit spends on that frame through the
benchmark's host. With a JSON file of an earlier run, reads that instead.

    bench/cegui_ratios.py [build/release/bin/tavubench | run.json] [extra benchmark flags]
"""
import json
import subprocess
import sys

source = sys.argv[1] if len(sys.argv) > 1 else "build/release/bin/tavubench"
if source.endswith(".json"):
    with open(source) as file:
        output = file.read()
else:
    flags = sys.argv[2:] or ["--benchmark_repetitions=3", "--benchmark_min_time=0.5"]
    output = subprocess.run([source, "--benchmark_filter=BM_(LoadInterface|FrameControls|HitSearch)/|BM_FrameHostCalls",
                             "--benchmark_format=json"] + flags,
                            check=True, capture_output=True, text=True).stdout

times = {}
for run in json.loads(output)["benchmarks"]:
    if run.get("aggregate_name", "median") != "median":
        continue
    parts = run["run_name"].split("/") + ["", ""]
    name, library, variant = parts[0], parts[1], "/".join(p for p in parts[2:] if p)
    unit = {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}[run.get("time_unit", "ns")]
    times[(name, variant, library)] = run["cpu_time"] * unit  # microseconds

for (name, variant, library) in sorted(times):
    if library != "tavukit":
        continue
    own = times[(name, variant, "tavukit")]
    peer = times.get((name, variant, "cegui"))
    label = f"{name}/{variant}" if variant else name
    if peer is None:
        print(f"{label:32} tavukit {own:10.1f} us   (no CEGUI figure)")
    else:
        print(f"{label:32} tavukit {own:10.1f} us   cegui {peer:10.1f} us   cegui/tavukit = {peer / own:6.1f}")

floor = times.get(("BM_FrameHostCalls", "", ""))
if floor is not None:
    print(f"{'BM_FrameHostCalls':32} the same frame's host calls alone: {floor:10.1f} us")
