#!/usr/bin/env python3
"""Writes the performance page from the figures of the programs in bench/.

usage: performance_page.py FOLDER PAGE

FOLDER holds files NAME.jsonl with one JSON object a line. Figures and runs that they lack stay as they are in PAGE, an
earlier page. The new one goes to standard output.
"""

import json
import os
import platform
import re
import subprocess
import sys
from pathlib import Path

# A heading, the method, and a pattern for its names. Names without a section come last.
SECTIONS = [
    ("Opening the ring",
     "From the press of the hotkey (XTest) to the first capture of the screen in which at least 50 pixels of the ring's "
     "annulus have changed. `complete`: to the first capture that equals the final picture. Eight items with icons and "
     "no opening animation unless the name says otherwise; `animated` has the usual one. The peer is gnome-pie with "
     "eight icons under the same X server, openbox and picom (xrender), opened in turns with ours; its first change is "
     "the beginning of its fade, ours the whole ring. `bare`, in turns with both: a program that on a passive grab only "
     "maps an ARGB window with a painted background and grabs the keyboard (`bench/support/bare_window.cpp`), the limit "
     "that the server and the compositor set. `first`: two seconds after the hotkey was bound.",
     r"^open\."),
    ("What an opening is made of",
     "The stages inside the unchanged program, by the kernel's probes at the entry and the return of its functions "
     "(`tools/lib/profile_opening.py`), warm, under picom. Small steps between the stages are in `all` only.",
     r"^stage\."),
    ("Moving", "From a pointer motion (XTest) to the highlight on screen, in the ring without animation, and how often "
     "the opening animation of the other ring paints: the mean time between two frames of an opening, and the longest.",
     r"^(move|animation)\."),
    ("Choosing", "From the release of the trigger to the key event in the target, and until the target window is active. "
     "The key path contains two fixed times: 150 ms until the restored application gets keys, and 12 ms between press "
     "and release.", r"^(select|switch)"),
    ("Placing windows", "From the request to place a window in the left or right half of the screen until another client "
     "sees its frame there. `ownShadow`: an editor that draws its own decoration; `maximized`: of a window that is "
     "maximised before.", r"^tile\."),
    ("Tapping the trackpad", "From the frame in which the last of three fingers lifts to the first capture that shows "
     "the ring, in turns with its hotkey. The trackpad is one of a mock kernel (umockdev), which answers each read of "
     "the program; a real one would not take that round trip.", r"^trackpad\."),
    ("Commands of the application in front", "From the press of the hotkey to the first capture that shows the ring of "
     "an editor's (mousepad's) commands: eight, of which six are in its menus. `prefetched`: they are known; `cold`: "
     "nothing is known, since a command has just run; `plain`: a ring of eight snippets, in turns with both.",
     r"^command_ring\."),
    ("Reading menus", "All commands of an application, three menus deep, with the program's own reader: mousepad (GTK 3) "
     "and linguist (Qt 6) over the accessibility bus, gtk4-demo-application (GTK 4) by org.gtk.Menus. `cold`: the first "
     "time in the application's life, which then makes its accessible objects; five starts.", r"^menus\."),
    ("Keys that pass the event tap", "The tap's callback for an event that matches none of ten bindings, one reading of "
     "the clock included, and the time from a key press (physical keyboard of Xvfb) to its arrival in the focused "
     "application, with Super+Tab and an Fn hotkey bound and without the program.", r"^event_tap\."),
    ("Footprint", "At rest after start-up, beside the peer; wake-ups are voluntary context switches. Memory and wake-ups "
     "are those of all processes of a program; ours has a small companion process.", r"^footprint\."),
    ("The settings window", "From a call over the session bus (by gdbus, its start included) to the first capture that "
     "shows the window, and to the one without a later change; `first` is the first opening of the program. The memory "
     "of all its processes before it, while it is open and after it was closed again.", r"^settings_window\."),
    ("The core",
     "Google Benchmark, CPU time of one call, median of three repetitions. The number behind a name is that of the "
     "sectors; of `decode`, `bareParse` and `encode` that of menus of 36 items, 0 being the first-run document.",
     r"^core\."),
    ("Drawing",
     "Google Benchmark, as above; a ring of eight. The number is the percentage of pixels per point.", r"^drawing\."),
    ("What costs grow with", "An opening without animation under picom, until it is complete; the other three are as "
     "usual (8 items, 2 menus, 1 monitor, 1 pixel per point). `menus` have eight items each.", r"^law\."),
]


def command_output(*command):
    try:
        return subprocess.run(command, capture_output=True, text=True, timeout=20, check=False).stdout.strip()
    except (OSError, subprocess.TimeoutExpired):
        return ""


def package_version(name):
    return command_output("dpkg-query", "-W", "-f=${Version}", name)


def processor():
    model = re.search(r"^model name\s*:\s*(.*)$", Path("/proc/cpuinfo").read_text(encoding="utf-8"), re.MULTILINE)
    return model.group(1) if model else platform.machine()


def machine():
    memory = re.search(r"^MemTotal:\s*(\d+)", Path("/proc/meminfo").read_text(encoding="utf-8"), re.MULTILINE)
    packages = ", ".join(f"{name} {package_version(name)}" for name in ("xvfb", "openbox", "picom", "gnome-pie"))
    return (f"{os.cpu_count()} cores, {int(memory.group(1)) // 1048576 if memory else '?'} GiB, Linux {platform.release()}; "
            f"{packages}; "
            f"{command_output('c++', '--version').splitlines()[0]}. Xvfb has no GPU and no vertical sync.")


def read_lines(folder):
    """The figures, and date and load of each program's run."""
    figures, runs = [], []
    for file in sorted(Path(folder).glob("*.jsonl")):
        for line in file.read_text(encoding="utf-8").splitlines():
            if line.strip():
                entry = json.loads(line)
                (runs if "run" in entry else figures).append(entry)
    return figures, runs


def page_figure(cells):
    name, unit, count, middle, high, highest = cells
    figure = {"name": name, "unit": unit, "n": count}
    if high:
        return figure | {"p50": float(middle), "p95": float(high), "p99": float(highest)}
    return figure | {"value": float(middle)}


def page_run(cells):
    return dict(zip(("run", "date", "load_before", "load_after", "processor"), cells))


def read_page(file):
    """The figures and runs of an earlier page, as read_lines returns them."""
    figures, runs, make = [], [], None
    for line in Path(file).read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if not line.startswith("|"):
            make = None
        elif cells[0] == "what" and len(cells) == 6:
            make = lambda row: figures.append(page_figure(row))
        elif cells[0] == "program" and len(cells) == 5:
            make = lambda row: runs.append(page_run(row))
        elif make and not cells[0].startswith("---"):
            make(cells)
    return figures, runs


def merged(earlier, new, key):
    """The earlier entries in their order, each replaced by the new one of the same key, and the other new ones."""
    entries = {entry[key]: entry for entry in earlier}
    entries.update({entry[key]: entry for entry in new})
    return list(entries.values())


def row(figure):
    count = f"{figure['n']} × {figure['runs']}" if "runs" in figure else figure.get("n", "")
    if "value" in figure:
        return f"| {figure['name']} | {figure['unit']} | {count} | {figure['value']:g} | | |"
    return (f"| {figure['name']} | {figure['unit']} | {count} | {figure['p50']:g} | {figure['p95']:g} | "
            f"{figure['p99']:g} |")


def table(figures):
    lines = ["| what | unit | n | p50 or value | p95 | p99 |", "|---|---|---|---|---|---|"]
    return "\n".join(lines + [row(figure) for figure in figures])


def comparison(figures):
    """Our openings beside those of the contenders in the same run."""
    names = ("open.warm.picom", "open.warm.picom.peer", "open.warm.picom.bare")
    found = {figure["name"]: figure for figure in figures}
    if any(name not in found for name in names):
        return ""
    lines = ["| first change, ms | ours | peer | bare window | ours / peer | ours / bare |", "|---|---|---|---|---|---|"]
    for percentile in ("p50", "p95", "p99"):
        ours, peer, bare = (found[name][percentile] for name in names)
        lines.append(f"| {percentile} | {ours:g} | {peer:g} | {bare:g} | {ours / peer:.2f} | {ours / bare:.2f} |")
    return "\n".join(lines)


def circumstances(runs):
    lines = ["| program | ended | load average before | after | processor |", "|---|---|---|---|---|"]
    lines += [f"| {run['run']} | {run['date']} | {run['load_before']} | {run['load_after']} | "
              f"{run.get('processor') or processor()} |" for run in runs]
    return "\n".join(lines)


def notes(heading):
    """The notes on a section: the part of the notes file under the same heading."""
    file = Path(__file__).resolve().parents[2] / "docs" / "performance-notes.md"
    if not file.exists():
        return ""
    found = re.search(rf"^## {re.escape(heading)}\n(.*?)(?=^## |\Z)", file.read_text(encoding="utf-8"),
                      re.MULTILINE | re.DOTALL)
    return found.group(1).strip() if found else ""


def main():
    if len(sys.argv) != 3:
        print(__doc__, file=sys.stderr)
        return 2
    new_figures, new_runs = read_lines(sys.argv[1])
    old_figures, old_runs = read_page(sys.argv[2])
    figures = merged(old_figures, new_figures, "name")
    runs = sorted(merged(old_runs, new_runs, "run"), key=lambda run: run["run"])
    print("# Performance\n")
    print("Made by `tools/bench` from what the programs in `bench/` print and from `performance-notes.md`; do not edit.\n")
    print(f"Measured on: {machine()}\n")
    print("`n` of the form 500 × 3: three runs of 500, of each figure the median.\n")
    for heading, text, pattern in SECTIONS:
        covered = [figure for figure in figures if re.search(pattern, figure["name"])]
        figures = [figure for figure in figures if figure not in covered]
        parts = [text, comparison(covered), table(covered) if covered else "", notes(heading)]
        if covered or parts[3]:
            print("\n\n".join([f"## {heading}"] + [part for part in parts if part]) + "\n")
    if figures:
        print(f"## More\n\n{table(figures)}\n")
    print("## When this was measured\n\nThe load average includes other programs; the bench itself adds about "
          f"one.\n\n{circumstances(runs)}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
