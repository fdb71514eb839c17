#!/usr/bin/env python3
"""Runs tavubench once and prints each XML reader's speed beside the toolkit's,
as the ratio toolkit / peer on the same document (above 1: the toolkit is faster).

    bench/ratios.py [build/release/bin/tavubench] [extra benchmark flags]
"""
import json
import subprocess
import sys

binary = sys.argv[1] if len(sys.argv) > 1 else "build/release/bin/tavubench"
flags = sys.argv[2:] or ["--benchmark_repetitions=3"]
output = subprocess.run([binary, "--benchmark_filter=BM_XmlParse", "--benchmark_format=json"]
                        + flags, check=True, capture_output=True, text=True).stdout
speeds = {}
for run in json.loads(output)["benchmarks"]:
    if run.get("aggregate_name", "median") != "median":
        continue
    _, library, document = run["run_name"].split("/")
    speeds[(library, document)] = run["bytes_per_second"] / 1e6

for document in sorted({d for _, d in speeds}):
    own = speeds.get(("tavukit", document))
    print(f"{document}: tavukit {own:.1f} MB/s")
    for (library, doc), speed in sorted(speeds.items()):
        if doc == document and library != "tavukit":
            print(f"  {library:9} {speed:7.1f} MB/s   tavukit/{library} = {own / speed:.2f}")
