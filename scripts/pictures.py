#!/usr/bin/env python3
"""Draws the pictures of docs/architecture.md from what they show.

    scripts/pictures.py [FOLDER]    docs/pictures: rooms.svg, call.svg

The rooms and their arrows are those that tests/layering/include_rules.cpp holds the
includes to; a call's way is docs/pictures/call.txt. Ends with 1 when one of them cannot
be read.
"""
import re
import sys
from pathlib import Path
from xml.sax.saxutils import escape

root = Path(__file__).resolve().parents[1]

WHAT_IT_HOLDS = {
    "shell": "the hidden form, supervision, icon",
    "softphone": "the link: events, actions, mirrors",
    "outlook": "all that is done in Outlook",
    "lotus": "all that is done in Notes",
    "common": "settings, records, texts, the trap",
    "automation": "COM automation, both directions",
    "convid": "the identifier map's server",
    "check": "HublinkCheck, which tells what is found",
    "setup": "the installer's helper",
    "desk": "simulated partners, player, bench",
}
PROGRAM = {"shell": "hublink.exe", "convid": "PavexConvId.exe", "check": "HublinkCheck.exe"}

STYLE = 'font-family="Segoe UI, Helvetica, Arial, sans-serif"'
INK, LINE, ROOM, PARTNER = "#1c2733", "#5b6b7b", "#e4eef8", "#f4ead6"


def rooms_of(rules):
    """Each room with the rooms that it may use."""
    found = re.findall(r'\{"(\w+)", \{([^{}]*)\}\}', rules)
    if not found:
        raise ValueError("no rooms")
    return {room: re.findall(r'"(\w+)"', used) for room, used in found}


def height_of(room, rooms):
    return 1 + max((height_of(used, rooms) for used in rooms[room]), default=-1)


def direct(room, rooms):
    """The rooms it uses, without those that it uses through another one."""
    return [used for used in rooms[room]
            if not any(used in rooms[other] for other in rooms[room])]


def text(x, y, words, size=13, anchor="middle", weight="normal", fill=INK):
    return (f'<text x="{x:g}" y="{y:g}" font-size="{size}" text-anchor="{anchor}" font-weight="{weight}" '
            f'fill="{fill}">{escape(words)}</text>')


def box(x, y, width, height, fill):
    return f'<rect x="{x:g}" y="{y:g}" width="{width}" height="{height}" rx="6" fill="{fill}" stroke="{LINE}"/>'


def arrow(*points):
    way = " ".join(f"{x:g},{y:g}" for x, y in points)
    return f'<polyline points="{way}" fill="none" stroke="{LINE}" stroke-width="1.4" marker-end="url(#head)"/>'


def picture(width, height, title, parts):
    head = (f'<marker id="head" viewBox="0 0 10 10" refX="9" refY="5" markerWidth="7" markerHeight="7" '
            f'orient="auto"><path d="M0 0L10 5L0 10z" fill="{LINE}"/></marker>')
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" '
        f'viewBox="0 0 {width} {height}" {STYLE}>',
        f"<title>{escape(title)}</title>", f"<defs>{head}</defs>",
        f'<rect width="{width}" height="{height}" fill="#ffffff"/>', *parts, "</svg>"]) + "\n"


def draw_rooms(rules):
    rooms = rooms_of(rules)
    heights = {room: height_of(room, rooms) for room in rooms}
    wide, high, gap, between = 236, 58, 24, 48
    rows = [[room for room in rooms if heights[room] == level] for level in range(max(heights.values()), -1, -1)]
    width = gap + max(len(row) for row in rows) * (wide + gap)
    place = {}
    for line, row in enumerate(rows):
        left = (width - len(row) * (wide + gap) + gap) / 2
        for index, room in enumerate(row):
            place[room] = left + index * (wide + gap), gap + line * (high + between)
    parts = []
    for room in rooms:
        for used in direct(room, rooms):
            (x1, y1), (x2, y2) = place[room], place[used]
            way = [(x1 + wide / 2, y1 + high)]
            for row in rows:  # those that it passes: through the gap that is nearest
                left, top = place[row[0]]
                if y1 < top < y2:
                    gaps = [left - gap / 2 + index * (wide + gap) for index in range(len(row) + 1)]
                    nearest = min(gaps, key=lambda middle: abs(middle - way[0][0]))
                    way += [(nearest, top), (nearest, top + high)]
            parts.append(arrow(*way, (x2 + wide / 2 + (x1 - x2) / 12, y2 - 2)))
    for room, (x, y) in place.items():
        name = room + (f" → {PROGRAM[room]}" if room in PROGRAM else "")
        parts += [box(x, y, wide, high, ROOM), text(x + wide / 2, y + 24, name, 15, weight="600"),
                  text(x + wide / 2, y + 44, WHAT_IT_HOLDS[room], 12)]
    return picture(width, len(rows) * (high + between) - between + 2 * gap,
                   "The rooms of the source: an arrow leads to what a room may include", parts)


def steps_of(script):
    lines = [line for line in script.splitlines() if line.strip() and not line.startswith("#")]
    if not lines or not lines[0].startswith("parts: "):
        raise ValueError("the first line tells no parts")
    names = [name.strip() for name in lines[0].removeprefix("parts: ").split("|")]
    steps = []
    for line in lines[1:]:
        found = re.fullmatch(r"(\S+) -> (\S+): (.+)", line)
        if not found or found.group(1) not in names or found.group(2) not in names:
            raise ValueError(f"not a step: {line}")
        steps.append(found.groups())
    return names, steps


def draw_call(script):
    names, steps = steps_of(script)
    column, top, line = 216, 64, 46
    middle = {name: column * (index + 0.5) for index, name in enumerate(names)}
    height = top + line * len(steps) + 30
    parts = []
    for name, x in middle.items():
        parts += [f'<line x1="{x:g}" y1="{top - 14}" x2="{x:g}" y2="{height - 14}" stroke="{LINE}" '
                  f'stroke-dasharray="3 4"/>',
                  box(x - 68, 16, 136, 34, PARTNER if name.endswith(".exe") else ROOM),
                  text(x, 38, name, 14, weight="600")]
    for index, (source, target, words) in enumerate(steps):
        y = top + line * index + 34
        x1, x2 = middle[source], middle[target]
        label = (x1 + x2) / 2 if source != target else x1 + 90
        if source == target:
            parts.append(f'<path d="M{x1:g} {y - 12}h34v14h-30" fill="none" stroke="{LINE}" stroke-width="1.4" '
                         f'marker-end="url(#head)"/>')
            parts.append(text(x1 + 42, y, words, 12, "start"))
            continue
        parts.append(arrow((x1, y), (x2 - (3 if x2 > x1 else -3), y)))
        span = len(words) * 6.2
        parts.append(f'<rect x="{label - span / 2:g}" y="{y - 19:g}" width="{span:g}" height="15" fill="#ffffff" '
                     f'opacity="0.85"/>')
        parts.append(text(label, y - 7, words, 12))
    return picture(int(column * len(names)), height, "A call's way through the rooms", parts)


def main(arguments):
    folder = Path(arguments[0]) if arguments else root / "docs/pictures"
    try:
        rules = (root / "tests/layering/include_rules.cpp").read_text(encoding="utf-8")
        script = (root / "docs/pictures/call.txt").read_text(encoding="utf-8")
        drawn = {"rooms.svg": draw_rooms(rules), "call.svg": draw_call(script)}
    except (OSError, ValueError, KeyError) as error:
        print(f"pictures: {error}", file=sys.stderr)
        return 1
    for name, content in drawn.items():
        (folder / name).write_text(content, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
