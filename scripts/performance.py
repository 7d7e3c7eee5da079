#!/usr/bin/env python3
"""Puts the figures of a run of ./bench into docs/performance.md and draws docs/performance.svg.

    scripts/performance.py [LOG [PAGE [PICTURE]]]    out/bench.log, docs/performance.md, docs/performance.svg

Ends with 1 and changes nothing when the log lacks a figure.
"""
import math
import re
import sys
from collections import namedtuple
from pathlib import Path

Cost = namedtuple("Cost", "round_trips milliseconds reckoned")

# What the table tells: the work as the bench names it, over how many contacts, in words.
WORKS = [
    ("unknown", 10_000, "Outlook: unknown caller, who becomes a contact"),
    ("known as stored", 10_000, "Outlook: known caller, the filter finds him"),
    ("known under dots or blanks, middle, rewritten", 10_000, "Outlook: known under dots, in the middle, rewritten"),
    ("known under dots or blanks, middle, kept", 10_000, "Outlook: the same, kept"),
    ("known under dots or blanks, end, rewritten", 10_000, "Outlook: known under blanks, at the end, rewritten"),
    ("known under dots or blanks, end, kept", 10_000, "Outlook: the same, kept"),
    ("forwarded, both under dots or blanks, rewritten", 10_000, "Outlook: forwarded call, both rewritten"),
    ("forwarded, both under dots or blanks, kept", 10_000, "Outlook: forwarded call, both kept"),
    ("outgoing, known under dots", 10_000, "Outlook: outgoing call, known under dots"),
    ("Outlook, first synchronisation", 150, "Outlook: first synchronisation"),
    ("Outlook, second synchronisation", 150, "Outlook: second synchronisation"),
    ("Notes, known caller in the last of three books", 60_000, "Notes: known caller"),
    ("Notes, first synchronisation", 150, "Notes: first synchronisation"),
    ("Notes, second synchronisation", 150, "Notes: second synchronisation"),
]
DRAWN = "known under dots or blanks, end, kept"
LINES = [("script", "#b5482f", "script"),
         ("Hublink without tables", "#b08a1e", "Hublink, Outlook without tables"),
         ("Hublink", "#1e5fa8", "Hublink")]


class Figures:
    def __init__(self, log):
        self.costs, self.needed, self.latency, self.machine = {}, {}, {}, ""
        self.targets = {}
        for line in log.splitlines():
            if found := re.fullmatch(r"   (met|NOT MET) +(.+)", line):
                self.targets[found.group(2)] = found.group(1) == "met"
            kind, *parts = line.split("\t")[1:] if line.startswith("figure\t") else [""]
            if kind == "cost":
                work, client, contacts, round_trips, milliseconds, how = parts
                self.costs[work, client, int(contacts)] = Cost(int(round_trips), int(milliseconds), how == "reckoned")
            elif kind == "needed":
                self.needed[parts[0]] = int(parts[1])
            elif kind == "latency":
                self.latency[parts[0]] = parts[1:]
            elif kind == "machine":
                self.machine = parts[0]

    def line_of(self, client):
        return sorted((contacts, cost) for (work, whose, contacts), cost in self.costs.items()
                      if (work, whose) == (DRAWN, client))


def time_text(milliseconds):
    if milliseconds < 10_000:
        return f"{milliseconds / 1000:.1f} s"
    return f"{milliseconds / 1000:,.0f} s" if milliseconds < 600_000 else f"{milliseconds / 60_000:,.0f} min"


def cells(cost):
    about = "about " if cost.reckoned else ""
    return f"{about}{cost.round_trips:,} | {about}{time_text(cost.milliseconds)}"


def cost_table(figures):
    lines = ["| | Hublink | | script | | least by the steps |", "|---|--:|--:|--:|--:|--:|"]
    for work, contacts, words in WORKS:
        lines.append(f"| {words} | {cells(figures.costs[work, 'Hublink', contacts])} "
                     f"| {cells(figures.costs[work, 'script', contacts])} | {figures.needed[work]:,} |")
    return lines


def latency_table(figures):
    lines = ["| milliseconds | calls | 50 % | 90 % | 99 % | most |", "|---|--:|--:|--:|--:|--:|"]
    return lines + [f"| {client} | " + " | ".join(figures.latency[client]) + " |" for client in ("Hublink", "script")]


def target_list(figures):
    if not figures.targets:
        raise KeyError("a target")
    return [f"- {text}{'' if met else ' (**not met**)'}" for text, met in figures.targets.items()]


def with_block(page, name, lines):
    """The page with what stands between the marks of that name replaced."""
    begin, end = f"<!-- {name} -->\n", f"<!-- end of {name} -->"
    before, rest = page.split(begin)
    return before + begin + "\n".join(lines) + "\n" + end + rest.split(end)[1]


class Picture:
    """Round trips against contacts, both axes logarithmic."""
    WIDTH, HEIGHT, LEFT, RIGHT, TOP, BOTTOM = 760, 440, 90, 580, 60, 380
    MOST_CALLS, LEAST_CALLS = 1_000_000, 10
    LEAST_CONTACTS, MOST_CONTACTS = 100, 10_000

    def __init__(self):
        self.parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {self.WIDTH} {self.HEIGHT}" '
                      f'width="{self.WIDTH}" height="{self.HEIGHT}" font-family="sans-serif" font-size="13">',
                      f'<rect width="{self.WIDTH}" height="{self.HEIGHT}" fill="white"/>']

    def x(self, contacts):
        share = math.log(contacts / self.LEAST_CONTACTS) / math.log(self.MOST_CONTACTS / self.LEAST_CONTACTS)
        return self.LEFT + share * (self.RIGHT - self.LEFT)

    def y(self, calls):
        share = math.log(calls / self.LEAST_CALLS) / math.log(self.MOST_CALLS / self.LEAST_CALLS)
        return self.BOTTOM - share * (self.BOTTOM - self.TOP)

    def text(self, x, y, words, anchor="start", fill="#333", more=""):
        self.parts.append(f'<text x="{x:.0f}" y="{y:.0f}" text-anchor="{anchor}" fill="{fill}"{more}>{words}</text>')

    def stroke(self, points, color, width=1.0, dashes=""):
        path = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        dashed = f' stroke-dasharray="{dashes}"' if dashes else ""
        self.parts.append(f'<polyline points="{path}" fill="none" stroke="{color}" stroke-width="{width}"{dashed}/>')

    def axes(self):
        self.text(self.LEFT, 24, "From the event to the window: a caller whose number has blanks,", more=' font-size="15"')
        self.text(self.LEFT, 43, "his contact the last one of the folder", more=' font-size="15"')
        for calls in (10 ** power for power in range(1, 7)):
            self.stroke([(self.LEFT, self.y(calls)), (self.RIGHT, self.y(calls))], "#ddd")
            self.text(self.LEFT - 8, self.y(calls) + 4, f"{calls:,}", "end")
        for contacts in (100, 1_000, 10_000):
            self.stroke([(self.x(contacts), self.TOP), (self.x(contacts), self.BOTTOM)], "#ddd")
            self.text(self.x(contacts), self.BOTTOM + 20, f"{contacts:,}", "middle")
        self.text((self.LEFT + self.RIGHT) / 2, self.BOTTOM + 44, "contacts", "middle")
        middle = (self.TOP + self.BOTTOM) / 2
        self.text(20, middle, "round trips", "middle", more=f' transform="rotate(-90 20 {middle:.0f})"')

    def line(self, costs, color, words):
        """Measured points are filled, and joined to the reckoned ones by a broken line."""
        points = [(self.x(contacts), self.y(cost.round_trips)) for contacts, cost in costs]
        for (_, cost), start, end in zip(costs[1:], points, points[1:]):
            self.stroke([start, end], color, 2, "6 4" if cost.reckoned else "")
        for (_, cost), (x, y) in zip(costs, points):
            fill = "white" if cost.reckoned else color
            self.parts.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="4.5" fill="{fill}" stroke="{color}" stroke-width="2"/>')
        x, y = points[-1]
        head, _, tail = words.partition(", ")
        self.text(x + 12, y + 4, f"{head} {costs[-1][1].round_trips:,}", fill=color)
        if tail:
            self.text(x + 12, y + 20, tail, fill=color)

    def svg(self):
        self.text(self.LEFT, self.BOTTOM + 44, "hollow: reckoned", fill="#777")
        return "\n".join(self.parts + ["</svg>"]) + "\n"


def draw(figures):
    picture = Picture()
    picture.axes()
    for client, color, words in LINES:
        costs = figures.line_of(client)
        if len(costs) < 2:
            raise KeyError(f"{DRAWN}: {client}")
        picture.line(costs, color, words)
    return picture.svg()


def main(arguments):
    if len(arguments) > 3 or any(str(argument).startswith("-") for argument in arguments):
        print("usage: scripts/performance.py [LOG [PAGE [PICTURE]]]", file=sys.stderr)
        return 2
    root = Path(__file__).resolve().parent.parent
    defaults = [root / "out/bench.log", root / "docs/performance.md", root / "docs/performance.svg"]
    log, page, picture = [Path(argument) for argument in arguments] + defaults[len(arguments):]
    try:
        figures = Figures(log.read_text(encoding="utf-8"))
        text = with_block(page.read_text(encoding="utf-8"), "costs", cost_table(figures))
        text = with_block(text, "latency", latency_table(figures))
        text = with_block(text, "targets", target_list(figures))
        text = with_block(text, "machine", [f"Measured on {figures.machine}."])
        drawing = draw(figures)
    except KeyError as missing:
        print(f"performance: {log} has no figure of {missing}", file=sys.stderr)
        return 1
    except (OSError, ValueError) as error:
        print(f"performance: {error}", file=sys.stderr)
        return 1
    page.write_text(text, encoding="utf-8")
    picture.write_text(drawing, encoding="utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
