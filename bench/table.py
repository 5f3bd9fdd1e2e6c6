"""Prints the ratios of a run of the benchmarks.

Usage: table.py FOLDER, with the figures of each benchmark in FOLDER/NAMEBench.json as
--benchmark_format=json writes them.
"""

import json
import sys
from pathlib import Path
from statistics import median


def load(path):
    return json.loads(path.read_text(encoding="utf-8"))["benchmarks"]


def print_selection(runs):
    figures = {}
    for run in runs:
        name, states, nodes = run["name"].split("/")
        figures[name, int(nodes), int(states)] = run["ns_per_state"]
    print("Selecting N node states in a scene of M nodes, nanoseconds per state")
    print(f"{'M':>9} {'N':>7} {'floor':>9} {'select':>9} {'ratio':>6}   walk per name / select")
    for (name, nodes, states), floor in sorted(figures.items()):
        if name != "floor":
            continue
        select = figures["select", nodes, states]
        walk = figures.get(("walk", nodes, states))
        factor = f"{walk / select:12.0f} times" if walk else ""
        print(f"{nodes:9} {states:7} {floor:9.0f} {select:9.0f} {select / floor:6.2f}   {factor}")


def print_reading(runs):
    times, peaks = {}, {}
    for run in runs:
        name = run["name"].split("/")[0]
        times.setdefault(name, []).append(run["real_time"] / 1e6)
        peaks.setdefault(name, []).append(run["peak_MB"])
    text = runs[0]["text_MB"]
    print(f"\nReading a document of {text:.1f} MB, beside a bare QDomDocument::setContent")
    print(f"{'':12} {'ms':>8} {'peak MB':>9}")
    for name in ("setContent", "read"):
        print(f"{name:12} {median(times[name]):8.0f} {median(peaks[name]):9.0f}")
    time_ratio = median(times["read"]) / median(times["setContent"])
    peak_ratio = median(peaks["read"]) / median(peaks["setContent"])
    print(f"{'ratio':12} {time_ratio:8.2f} {peak_ratio:9.2f}")


def print_writing(runs):
    times = {}
    for run in runs:
        times.setdefault(run["name"].split("/")[0], []).append(run["real_time"] / 1e6)
    text = runs[0]["text_MB"]
    print(f"\nWriting a document of {text:.1f} MB, beside a bare QDomDocument and its toByteArray")
    print(f"{'':12} {'ms':>8}")
    for name in ("toByteArray", "write"):
        print(f"{name:12} {median(times[name]):8.0f}")
    print(f"{'ratio':12} {median(times['write']) / median(times['toByteArray']):8.2f}")


def print_upkeep(runs):
    figures = {}
    for run in runs:
        name, variants = run["name"].split("/")[:2]
        figures.setdefault(name, {})[int(variants)] = run["ns_per_state"]
    sizes = sorted(next(iter(figures.values())))
    print("\nUpkeep of N variants in a scene of 100000 nodes, nanoseconds per state")
    print(f"{'':16}" + "".join(f"{'N=' + str(size):>10}" for size in sizes) + f"{'growth':>8}")
    for name, row in figures.items():
        values = "".join(f"{row[size]:10.0f}" for size in sizes)
        print(f"{name:16}{values}{row[sizes[-1]] / row[sizes[0]]:8.2f}")


def print_pictures(runs):
    figures = {run["name"].split("/")[0]: run for run in runs}
    bare = figures["bareRays"]["rays_per_second"] / 1e6
    ours = figures["primaryVisibility"]["rays_per_second"] / 1e6
    first, second = (figures[name]["real_time"] for name in ("firstPicture", "pictureAfterChange"))
    print("\nPictures of the sample")
    print(f"first visible thing, one thread   {ours:6.2f} million rays/s, "
          f"bare tracer {bare:.2f}, ratio {ours / bare:.2f}")
    print(f"preview, 264 x 256                {figures['preview']['real_time']:6.0f} ms")
    print(f"what comes before the rays        {first:6.0f} us for the first picture, "
          f"{second:.0f} after a change, ratio {second / first:.2f}")


def print_capture(runs):
    figures = {run["name"]: run for run in runs}
    sizes = sorted(int(name.split("/")[1]) for name in figures if name.startswith("bare/"))
    print("\nCapturing a scene of N nodes, beside a bare walk, nanoseconds per node")
    print(f"{'N':>9} {'bare':>8} {'events':>8} {'capture':>8} {'ratio':>6}")
    for size in sizes:
        bare, events, capture = (figures[f"{name}/{size}"]["ns_per_node"]
                                 for name in ("bare", "events", "capture"))
        print(f"{size:9} {bare:8.0f} {events:8.0f} {capture:8.0f} {capture / bare:6.2f}")
    print("100000 nodes, of which N are inactive, ms")
    for name in (name for name in figures if name.startswith("inactive/")):
        print(f"{name.split('/')[1]:>9} {figures[name]['real_time']:8.0f}")
    print("Again over 10000 remembered materials, ms")
    for name in (name for name in figures if name.startswith("again/")):
        sets, changed = name.split("/")[1:3]
        print(f"{sets:>9} sets, {changed:>5} materials changed {figures[name]['real_time']:8.0f}")


def print_script(runs):
    figures = {run["name"]: run["calls_per_second"] for run in runs}
    print("\nSelecting a set by a script, beside the same call from C++, thousand calls per second")
    print(f"{'':16} {'C++':>9} {'compiled':>9} {'script':>9} {'command':>9}   C++ / compiled")
    for title, name in (("unknown name", "Unknown"), ("three states", "Small")):
        cpp, compiled, script, command = (figures[f"{way}/{name}"] / 1e3
                                          for way in ("cpp", "compiled", "script", "command"))
        print(f"{title:16} {cpp:9.1f} {compiled:9.1f} {script:9.1f} {command:9.1f}"
              f"   {cpp / compiled:14.2f}")


def print_session(runs):
    figures = {run["name"].split("/")[0] + "/" + run["name"].split("/")[1]
               if "/" in run["name"] else run["name"]: run for run in runs}
    bare = figures["publish/real_time"]["real_time"] / 1e3
    print("\nA command of a session, beside a bare publication with acknowledgement, microseconds")
    print(f"bare publication {bare:22.0f}")
    for partners in (0, 1, 3, 8):
        push = figures[f"push/{partners}"]
        returned, ran = push["real_time"] / 1e3, push["last_run_us"]
        row = figures.get(f"row/{partners}")
        rate = f", {row['commands_per_second']:.0f} commands/s" if row else ""
        print(f"{partners} partners: returned after {returned:6.0f} ({returned / bare:.2f}), "
              f"last one ran it after {ran:6.0f} ({ran / bare:.2f}){rate}")
    sizes = figures["bytes"]
    print(f"bytes of a selection: {sizes['empty']:.0f} without states, "
          f"{sizes['ten_states']:.0f} with ten")


def main():
    folder = Path(sys.argv[1])
    tables = {"selection": print_selection, "reading": print_reading, "writing": print_writing,
              "upkeep": print_upkeep, "render": print_pictures, "capture": print_capture,
              "script": print_script, "session": print_session}
    for name, table in tables.items():
        table(load(folder / f"{name}Bench.json"))


if __name__ == "__main__":
    main()
