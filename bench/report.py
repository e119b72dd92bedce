"""Tables and curves of what `scripts/bench` has measured: results.csv with every figure, results.md
with the tables, growth.svg with time against rows. It measures nothing."""

import csv
import math

NAMES = {
    "core": "Tablio core",
    "tablio": "Tablio widget",
    "qtablewidget": "QTableWidget",
    "qtableview": "QTableView",
    "wxgrid": "wxGrid",
}
MEMORY = ["bytes a cell", "bytes a cell striped"]
START = "start to first frame"
CURVES = [
    "fill",
    "fill by rows",
    "fill numbers",
    "append the rows",
    "insert at middle",
    "remove at top",
    "clear numbered and striped",
    "find duplicate",
    "count data",
    "full frame",
    "scroll by a row",
    "one changed cell",
    "key to pixel",
    "Enter to pixel",
    "places of 1000 far cells",
]
COLOURS = {
    "core": "#1b7f5c",
    "tablio": "#1f5fbf",
    "qtablewidget": "#c2571a",
    "qtableview": "#8a5bb5",
    "wxgrid": "#8c7a1c",
}


def shown(microseconds):
    for size, unit in [(1e6, "s"), (1e3, "ms")]:
        if microseconds >= size:
            return f"{microseconds / size:.3g} {unit}"
    return f"{microseconds:.3g} µs"


class Table:
    def __init__(self, figures, present):
        self.figures = figures
        self.present = present

    def value(self, peer, work, size, index=0):
        numbers = self.figures.get((peer, work, size))
        return numbers[index] if numbers and index < len(numbers) else None

    def works(self, size):
        """In the order in which the programs print them."""
        found = []
        for _, work, at in self.figures:
            if at == size and work not in found and work not in MEMORY and work != START:
                found.append(work)
        return found

    def lines(self, size, peers):
        """A work a line; behind the time of each peer its ratio to ours, where both are known."""
        head = ["work", *(NAMES[peer] for peer in peers)]
        yield "| " + " | ".join(head) + " |"
        yield "|---|" + "---:|" * len(peers)
        for work in self.works(size):
            times = {peer: self.value(peer, work, size) for peer in peers}
            ours = times.get("tablio") or times.get("core")
            cells = []
            for peer in peers:
                if times[peer] is None:
                    cells.append("")
                elif peer in ("core", "tablio") or not ours or work.startswith("floor"):
                    cells.append(shown(times[peer]))
                else:
                    cells.append(f"{shown(times[peer])} ({times[peer] / ours:.3g} ×)")
            yield f"| {work} | " + " | ".join(cells) + " |"


def verdicts(table, size):
    """Each target with what was measured for it: work, target, measured, reached or not."""

    def value(peer, work, index=0):
        return table.value(peer, work, size, index)

    rows = []

    def add(work, target, measured, reached):
        rows.append((work, target, measured, "yes" if reached else "no"))

    def at_most(work, target, peer="tablio", index=0, name=None):
        """A time in microseconds."""
        if value(peer, work, index) is not None:
            add(name or f"{work}, {NAMES[peer]}", f"≤ {shown(target)}",
                shown(value(peer, work, index)), value(peer, work, index) <= target)

    def share(work, ours, other, target, target_text, name=None):
        """How many times as long as another figure, given as (peer, work)."""
        own, others = value(ours, work), value(*other)
        if own and others:
            add(name or f"{work}, {NAMES[ours]}", target_text, f"{own / others:.2f}",
                own / others <= target)

    def ahead(work, peer, target, theirs=None):
        own, other = value("tablio", work), value(peer, theirs or work)
        if own and other:
            add(work, f"≥ {target} × faster than {NAMES[peer]}", f"{other / own:.1f} ×",
                other / own >= target)

    for place in ("top", "middle", "end"):
        for work in (f"remove at {place}", f"insert at {place}"):
            at_most(work, 300)
            at_most(work, 2000, index=2, name=f"the longest {work}")
            share(f"bare {work}", "tablio", ("qtablewidget", f"bare {work}"), 1,
                  "no slower than QTableWidget", f"bare {work}")
    for peer in ("core", "tablio"):
        at_most("count data", 2, peer)
        at_most("find duplicate", 2000, peer)
    share("fill numbers", "tablio", ("wxgrid", "fill numbers"), 0.8, "≤ 0.8 of wxGrid")
    ahead("fill by rows", "qtablewidget", 12, "fill")
    ahead("fill by rows", "wxgrid", 12, "fill")
    share("fill", "tablio", ("core", "fill"), 1.4, "≤ 1.4 of the core", "fill, cell by cell")
    share("fill by rows", "core", ("core", "floor: copy the texts"), 2.5,
          "≤ 2.5 of copying the texts")
    for work in ("append the rows", "bare append the rows"):
        for peer in ("core", "tablio"):
            at_most(work, 60e3, peer)
    at_most("paste 20000 x 5", 250e3)
    for work in ("clear", "clear numbered and striped"):
        at_most(work, 1000)
    at_most("full frame", 1100)
    ahead("full frame", "qtablewidget", 5)
    at_most("places of 1000 far cells", 1000)
    at_most("load settings of 100 columns", 1000)
    at_most("save settings of 100 columns", 1000)
    for work in ("scroll by a row", "one changed cell"):
        ahead(work, "qtablewidget", 1)
    for work in ("key to pixel", "Enter to pixel", "arrow to pixel"):
        share(f"{work} read aloud", "tablio", ("tablio", f"{work} in a window"), 2,
              "≤ 2 × as long with a screen reader", f"{work}, read aloud")
    at_most("key in the core", 50, "core", 1, "a key in the core, 99th percentile")
    plain, striped = value("tablio", MEMORY[0]), value("tablio", MEMORY[1])
    if plain and striped:
        add("memory of a short cell", "≤ 20 bytes", f"{plain:.1f}", plain <= 20)
        add("stripes", "no bytes more", f"{striped - plain:.1f}", striped - plain <= 0.1)
    own, other = (table.value(peer, START, (1000, 20)) for peer in ("tablio", "qtablewidget"))
    if own and other:
        add("first frame of 1,000 rows", "no later than QTableWidget's program",
            f"{own:.1f} ms against {other:.1f} ms", own <= other)
    return rows


def curves(table, sizes):
    """Small charts, time against rows, both logarithmic: a line that climbs like the frame's
    diagonal grows with the rows, a flat one does not care."""
    width, height, margin, across = 262, 172, 46, 5
    parts = []
    for number, work in enumerate(CURVES):
        lines = {
            peer: [(size[0], table.value(peer, work, size)) for size in sizes
                   if table.value(peer, work, size)]
            for peer in COLOURS
        }
        values = [time for line in lines.values() for _, time in line]
        if not values:
            continue
        low, high = math.floor(math.log10(min(values))), math.ceil(math.log10(max(values)))
        high = max(high, low + 1)
        left = number % across * width + margin
        top = number // across * height + 30
        inner_width, inner_height = width - margin - 20, height - 60
        first, last = math.log10(sizes[0][0]), math.log10(sizes[-1][0])

        def place(rows, time):
            x = left + (math.log10(rows) - first) / (last - first) * inner_width
            y = top + (high - math.log10(time)) / (high - low) * inner_height
            return f"{x:.1f},{y:.1f}"

        parts.append(f'<text x="{left}" y="{top - 8}" font-weight="bold">{work}</text>')
        for power in range(low, high + 1):
            y = top + (high - power) / (high - low) * inner_height
            parts.append(f'<path d="M{left} {y:.1f}h{inner_width}" stroke="#ddd"/>')
            parts.append(f'<text x="{left - 4}" y="{y + 4:.1f}" text-anchor="end">'
                         f'{shown(10 ** power)}</text>')
        for size in sizes:
            x = place(size[0], 10 ** low).split(",")[0]
            parts.append(f'<text x="{x}" y="{top + inner_height + 14}" text-anchor="middle">'
                         f'{size[0]:,}</text>')
        for peer, line in lines.items():
            points = " ".join(place(*point) for point in line)
            thick = 2.4 if peer in ("core", "tablio") else 1.3
            parts.append(f'<polyline points="{points}" fill="none" stroke="{COLOURS[peer]}" '
                         f'stroke-width="{thick}"/>')
    down = (len(CURVES) + across - 1) // across
    legend = "".join(
        f'<text x="{margin + 130 * place}" y="{down * height + 14}" fill="{colour}" '
        f'font-weight="bold">{NAMES[peer]}</text>'
        for place, (peer, colour) in enumerate(COLOURS.items())
    )
    return (
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{across * width}" '
        f'height="{down * height + 26}" font-family="sans-serif" font-size="10">\n'
        '<rect width="100%" height="100%" fill="white"/>\n'
        + "\n".join([*parts, legend]) + "\n</svg>\n"
    )


def write(figures, present, main, sizes, wide, circumstances, directory):
    table = Table(figures, present)
    with open(directory / "results.csv", "w", newline="") as file:
        writer = csv.writer(file, lineterminator="\n")
        writer.writerow(["peer", "work", "rows", "cols", "median", "p99", "longest", "count"])
        for (peer, work, size), numbers in figures.items():
            writer.writerow([peer, work, *size, *(f"{number:.2f}" for number in numbers)])

    text = [
        "# What was measured",
        "",
        "Written by `scripts/bench`; what the works are and what limits them stands in",
        "[the README](../README.md). Every figure is in [results.csv](results.csv), in microseconds",
        f"(memory in bytes, start in milliseconds). Measured {circumstances}.",
        "",
        f"## Targets, at {main[0]:,} × {main[1]}",
        "",
        "| work | target | measured | reached |",
        "|---|---|---:|---|",
        *(f"| {' | '.join(row)} |" for row in verdicts(table, main)),
    ]
    for peer in NAMES:
        if peer not in present:
            text += ["", f"{NAMES[peer]} was skipped: it is not installed here."]
    for size, peers in [(main, present), *((size, present) for size in sizes),
                        (wide, ["core", "tablio"])]:
        text += [
            "",
            f"## {size[0]:,} rows × {size[1]} columns",
            "",
            "Medians; in brackets how many times as long as the Tablio widget.",
            "",
            *table.lines(size, [peer for peer in peers if peer in present]),
        ]
    text += ["", "## Memory and start", "", "| | " + " | ".join(NAMES[p] for p in present) + " |",
             "|---|" + "---:|" * len(present)]
    for work, size, unit in [(MEMORY[0], main, "bytes"), (MEMORY[1], main, "bytes"),
                             (START, (1000, 20), "ms")]:
        values = (table.value(peer, work, size) for peer in present)
        text.append(f"| {work} | " + " | ".join(f"{v:.1f} {unit}" if v else "" for v in values)
                    + " |")
    text += ["", "## Growth", "", "![time against rows](growth.svg)", ""]
    (directory / "results.md").write_text("\n".join(text))
    curve_sizes = sorted({size for _, _, size in figures if size[1] == main[1]
                          and size != wide and size[0] in (1000, 4000, 16000, main[0])})
    (directory / "growth.svg").write_text(curves(table, curve_sizes))
