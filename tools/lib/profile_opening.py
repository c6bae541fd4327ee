#!/usr/bin/env python3
"""Times the stages of an opening inside the unchanged program, with kernel probes on its functions.

usage: profile_opening.py FOLDER

FOLDER is a build folder that holds the program `rondora` and bench/opening_for_profile. Needs root, and a kernel with
uprobes. Prints one JSON object a line. The probes themselves make an opening slower.
"""

import json
import os
import re
import subprocess
import sys
from pathlib import Path

TRACING = Path("/sys/kernel/tracing")
GROUP = "rondora_bench"

# A probe's name, the program (under FOLDER) and a pattern for the mangled name of the function.
PROBES = [
    ("press", "bench/opening_for_profile", r"FrameWatcher5pressE"),
    ("seen", "bench/opening_for_profile", r"FrameWatcher11firstChangeE"),
    ("hotkey", "rondora", r"15MenuSwitchboard19handleHotkeyPressedE"),
    ("show", "rondora", r"23PieMenuWindowController4showE"),
    ("sectors", "rondora", r"13DisplayedMenu4makeE"),
    ("panel", "rondora", r"23PieMenuWindowController9makePanelE"),
    ("list", "rondora", r"15makeRingPictureE"),
    ("window", "rondora", r"16X11OverlayPanels9makePanelE"),
    ("prepare", "rondora", r"19QtPictureRasterizer7prepareE"),
    ("beneath", "rondora", r"15X11OverlayPanel11setSnapshotEv"),
    ("glass", "rondora", r"17QtPreparedPicture11setSnapshotE"),
    ("paint", "rondora", r"17QtPreparedPicture5paintE"),
    ("put", "rondora", r"12PixelSurface3putE"),
    ("grab", "rondora", r"12X11InputGrab4takeE"),
]

# A stage, and the two moments that bound it ("name" for the entry, "name>" for the return). The times of a stage that
# occurs several times in an opening are added.
STAGES = [
    ("key event: from the press to the program's handler", "press", "hotkey"),
    ("resolve: menu, application in front", "hotkey", "show"),
    ("sort and labels", "sectors", "sectors>"),
    ("place: pointer, monitors", "panel", "window"),
    ("window: made and mapped, snapshot requested", "window", "window>"),
    ("display list", "list", "list>"),
    ("prepare: icons, text, paths", "prepare", "prepare>"),
    ("snapshot: reply, blur", "beneath", "beneath>"),
    ("raster", "paint", "paint>"),
    ("upload and grabs, with the server's replies", "grab", "grab>"),
    ("server and compositor, until it is on screen", "grab>", "seen>"),
    ("all", "press", "seen>"),
]


def symbol_offset(program, pattern):
    """The offset of the function in the file, for uprobes."""
    found = None
    for line in subprocess.run(["nm", program], capture_output=True, text=True, check=True).stdout.splitlines():
        address, kind, name = (line.split() + ["", ""])[:3]
        if kind in "tTW" and re.search(pattern, name) and ".cold" not in name and ".localalias" not in name:
            found = int(address, 16)
    if found is None:
        raise SystemExit(f"{program}: no function {pattern}")
    headers = subprocess.run(["readelf", "-lW", program], capture_output=True, text=True, check=True).stdout
    for offset, address, size in re.findall(r"^\s+LOAD\s+(0x\w+)\s+(0x\w+)\s+0x\w+\s+(0x\w+)", headers, re.MULTILINE):
        if int(address, 16) <= found < int(address, 16) + int(size, 16):
            return found - int(address, 16) + int(offset, 16)
    raise SystemExit(f"{program}: {pattern} is not loaded")


def change_probes(line):
    """Appends; the file supports neither truncation nor seeking."""
    events = os.open(TRACING / "uprobe_events", os.O_WRONLY | os.O_APPEND)
    try:
        os.write(events, (line + "\n").encode("ascii"))
    finally:
        os.close(events)


def set_probes(folder):
    lines = []
    for name, program, pattern in PROBES:
        file = folder / program
        place = f"{file}:0x{symbol_offset(file, pattern):x}"
        lines += [f"p:{GROUP}/{name} {place}", f"r:{GROUP}/{name}_return {place}"]
    for line in lines:
        change_probes(line)


def remove_probes():
    enable = TRACING / "events" / GROUP / "enable"
    if enable.exists():
        enable.write_text("0", encoding="ascii")
        for name, _, _ in PROBES:
            for event in (name, name + "_return"):
                change_probes(f"-:{GROUP}/{event}")


def record(folder):
    (TRACING / "trace_clock").write_text("mono", encoding="ascii")
    (TRACING / "trace").write_text("", encoding="ascii")
    (TRACING / "events" / GROUP / "enable").write_text("1", encoding="ascii")
    subprocess.run([folder / "bench" / "opening_for_profile"], check=True, stderr=subprocess.DEVNULL)
    trace = (TRACING / "trace").read_text(encoding="utf-8", errors="replace")
    for seconds, name in re.findall(r"\s(\d+\.\d+): (\w+): \(", trace):
        yield float(seconds) * 1000, name.replace("_return", ">")


def openings(events):
    """The events from each press until shortly after the ring was seen."""
    moments = None
    for time, name in events:
        if name == "press":
            moments = [(time, name)]
        elif moments is not None:
            moments.append((time, name))
            if name == "seen>":
                yield moments
                moments = None


def duration(moments, start, end):
    total, begun = 0.0, None
    for time, name in moments:
        if name == start:
            begun = time
        elif name == end and begun is not None:
            total += time - begun
            begun = None
    return total


def report(samples):
    for stage, _, _ in STAGES:
        values = sorted(sample[stage] for sample in samples)

        def percentile(percent, sorted_values=values):
            return round(sorted_values[max(0, -(-percent * len(sorted_values) // 100) - 1)], 3)

        print(json.dumps({"name": "stage." + stage, "unit": "ms", "n": len(values), "p50": percentile(50),
                          "p95": percentile(95), "p99": percentile(99)}))


def main():
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    folder = Path(sys.argv[1]).resolve()
    remove_probes()
    set_probes(folder)
    try:
        taken = list(openings(record(folder)))
    finally:
        remove_probes()
    warm_up = 10
    report([{stage: duration(moments, start, end) for stage, start, end in STAGES} for moments in taken[warm_up:]])
    return 0


if __name__ == "__main__":
    sys.exit(main())
